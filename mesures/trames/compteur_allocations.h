/* Le nombre d'allocations de mémoire que le processus a faites depuis son départ. En C : le C++
   l'inclut dans un bloc extern "C". */
#pragma once

long nombreDAllocations(void);
