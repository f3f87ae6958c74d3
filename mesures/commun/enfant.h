/* Lancer un programme et lire ce qu'il écrit, en C nu : la référence de l'assistant. */
#pragma once

#include <fcntl.h>
#include <spawn.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

static inline void renoncer(const char* appel) {
    perror(appel);
    exit(1);
}

/* Lance arguments[0], sortie et erreur dans un tube, et rend le bout à lire. */
static inline int lancer(char** arguments, pid_t* enfant) {
    int tube[2];
    if (pipe2(tube, O_CLOEXEC) != 0) {
        renoncer("pipe2");
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, tube[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, tube[1], STDERR_FILENO);
    if (posix_spawn(enfant, arguments[0], &actions, NULL, arguments, environ) != 0) {
        renoncer(arguments[0]);
    }
    posix_spawn_file_actions_destroy(&actions);
    close(tube[1]);
    return tube[0];
}

static inline void attendre(int tube, pid_t enfant) {
    close(tube);
    int etat = 0;
    if (waitpid(enfant, &etat, 0) != enfant || etat != 0) {
        renoncer("waitpid");
    }
}
