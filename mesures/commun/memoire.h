/* La mémoire résidente du processus, pour le C et le C++. */
#pragma once

#include <stdio.h>
#include <unistd.h>

/* En kilooctets ; 0 quand le système ne la donne pas. */
static inline long memoireResidente(void) {
    long total = 0;
    long pages = 0;
    FILE* fichier = fopen("/proc/self/statm", "r");
    if (fichier != NULL) {
        if (fscanf(fichier, "%ld %ld", &total, &pages) != 2) {
            pages = 0;
        }
        fclose(fichier);
    }
    return pages * (sysconf(_SC_PAGESIZE) / 1024);
}
