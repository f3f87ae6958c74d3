// Objets associés de l'exécutif Objective-C.
#pragma once

#include <objc/objc.h>
#include <stdint.h>

typedef uintptr_t objc_AssociationPolicy;

enum : objc_AssociationPolicy { OBJC_ASSOCIATION_RETAIN_NONATOMIC = 1 };

extern "C" void objc_setAssociatedObject(id object, const void* key, id value,
                                         objc_AssociationPolicy policy);
