/* Le nombre d'allocations de mémoire que le processus a faites depuis son départ. */
#pragma once

#ifdef __cplusplus
extern "C"
#endif
    long
    nombreDAllocations(void);
