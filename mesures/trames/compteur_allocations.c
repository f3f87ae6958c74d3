/* Compte les allocations du processus : ces fonctions prennent la place de celles de la
   bibliothèque C, pour le programme et pour tout ce qu'il charge. */
#include "mesures/trames/compteur_allocations.h"

#include <errno.h>
#include <stdatomic.h>
#include <stddef.h>

void* __libc_malloc(size_t);
void* __libc_calloc(size_t, size_t);
void* __libc_realloc(void*, size_t);
void* __libc_memalign(size_t, size_t);
void __libc_free(void*);

static atomic_long allocations;

long nombreDAllocations(void) {
    return atomic_load(&allocations);
}

void* malloc(size_t taille) {
    atomic_fetch_add(&allocations, 1);
    return __libc_malloc(taille);
}

void* calloc(size_t nombre, size_t taille) {
    atomic_fetch_add(&allocations, 1);
    return __libc_calloc(nombre, taille);
}

void* realloc(void* ancien, size_t taille) {
    atomic_fetch_add(&allocations, 1);
    return __libc_realloc(ancien, taille);
}

void* aligned_alloc(size_t alignement, size_t taille) {
    atomic_fetch_add(&allocations, 1);
    return __libc_memalign(alignement, taille);
}

int posix_memalign(void** place, size_t alignement, size_t taille) {
    atomic_fetch_add(&allocations, 1);
    *place = __libc_memalign(alignement, taille);
    return *place == NULL ? ENOMEM : 0;
}

void free(void* bloc) {
    __libc_free(bloc);
}
