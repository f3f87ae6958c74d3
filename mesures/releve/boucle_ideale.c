// La boucle de trames écrite nue : la même bibliothèque, les mêmes appels, les mêmes attentes, et
// rien d'autre. C'est la ligne de base des mesures de cadence.
//
//     boucle_ideale BIBLIOTHEQUE SECONDES
//
// Statut : 0 quand toutes les trames sont parties, 1 sinon, 2 quand on l'appelle mal.
#define _DEFAULT_SOURCE
#include <dlfcn.h>
#include <stdbool.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <unistd.h>

typedef struct {
    uint32_t (*ouvrir)(int32_t, void**);
    uint32_t (*reinitialiser)(void*);
    uint32_t (*debit)(void*, uint32_t);
    uint32_t (*format)(void*, uint8_t, uint8_t, uint8_t);
    uint32_t (*flux)(void*, uint16_t, uint8_t, uint8_t);
    uint32_t (*purger)(void*, uint32_t);
    uint32_t (*commencer_break)(void*);
    uint32_t (*finir_break)(void*);
    uint32_t (*ecrire)(void*, void*, uint32_t, uint32_t*);
    uint32_t (*fermer)(void*);
} D2xx;

// Le C ne convertit pas une adresse de données en fonction : on en copie la valeur.
static bool chercher(void* bibliotheque, const char* nom, void* fonction) {
    void* const symbole = dlsym(bibliotheque, nom);
    memcpy(fonction, &symbole, sizeof symbole);
    return symbole != NULL;
}

static bool charger(const char* chemin, D2xx* d2xx) {
    void* const lib = dlopen(chemin, RTLD_NOW);
    return lib != NULL && chercher(lib, "FT_Open", &d2xx->ouvrir) &&
           chercher(lib, "FT_ResetDevice", &d2xx->reinitialiser) &&
           chercher(lib, "FT_SetBaudRate", &d2xx->debit) &&
           chercher(lib, "FT_SetDataCharacteristics", &d2xx->format) &&
           chercher(lib, "FT_SetFlowControl", &d2xx->flux) &&
           chercher(lib, "FT_Purge", &d2xx->purger) &&
           chercher(lib, "FT_SetBreakOn", &d2xx->commencer_break) &&
           chercher(lib, "FT_SetBreakOff", &d2xx->finir_break) &&
           chercher(lib, "FT_Write", &d2xx->ecrire) && chercher(lib, "FT_Close", &d2xx->fermer);
}

static bool regler(const D2xx* d2xx, void* poignee) {
    return (d2xx->reinitialiser(poignee) | d2xx->debit(poignee, 250000) |
            d2xx->format(poignee, 8, 2, 0) | d2xx->flux(poignee, 0, 0, 0) |
            d2xx->purger(poignee, 3)) == 0;
}

static double maintenant(void) {
    struct timespec lu;
    clock_gettime(CLOCK_MONOTONIC, &lu);
    return (double)lu.tv_sec + (double)lu.tv_nsec / 1e9;
}

static bool envoyer(const D2xx* d2xx, void* poignee, double secondes) {
    uint8_t trame[513] = {0};
    uint32_t ecrits = 0;
    uint32_t echecs = 0;
    const double fin = maintenant() + secondes;
    while (maintenant() < fin) {
        memset(trame + 1, 255, sizeof trame - 1);
        echecs |= d2xx->commencer_break(poignee);
        usleep(200);
        echecs |= d2xx->finir_break(poignee);
        echecs |= d2xx->ecrire(poignee, trame, sizeof trame, &ecrits);
        usleep(30000);
    }
    return echecs == 0;
}

int main(int nombre, char** arguments) {
    if (nombre != 3) {
        fputs("usage : boucle_ideale BIBLIOTHEQUE SECONDES\n", stderr);
        return 2;
    }
    D2xx d2xx;
    void* poignee = NULL;
    if (!charger(arguments[1], &d2xx)) {
        fprintf(stderr, "La bibliothèque ne se charge pas : %s.\n", arguments[1]);
        return 1;
    }
    if (d2xx.ouvrir(0, &poignee) != 0 || !regler(&d2xx, poignee)) {
        fputs("L'émetteur ne s'ouvre pas.\n", stderr);
        return 1;
    }
    const bool parties = envoyer(&d2xx, poignee, strtod(arguments[2], NULL));
    d2xx.fermer(poignee);
    return parties ? 0 : 1;
}
