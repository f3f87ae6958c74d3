// Les objets attachés à d'autres, que l'exécutif de GCC n'a pas (executif.mm).
#pragma once

#import <Foundation/Foundation.h>

#include <cstdint>

enum : std::uintptr_t { OBJC_ASSOCIATION_RETAIN_NONATOMIC = 1 };

extern "C" {

// La valeur est tenue jusqu'à ce qu'une autre la remplace, ou que le porteur disparaisse.
void objc_setAssociatedObject(id porteur, const void* cle, id valeur, std::uintptr_t politique);
id objc_getAssociatedObject(id porteur, const void* cle);

} // extern "C"
