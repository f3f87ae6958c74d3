// Les entiers d'Objective-C et les formes d'énumération, que demande aussi objc/NSObject.h.
#pragma once

#include <limits.h>
#include <objc/objc.h>

typedef long NSInteger;
typedef unsigned long NSUInteger;

#define NS_DESIGNATED_INITIALIZER __attribute__((objc_designated_initializer))

// L'adresse rendue est dans l'objet : ARC le garde en vie tant qu'elle sert.
#define NS_RETURNS_INNER_POINTER __attribute__((objc_returns_inner_pointer))

#define NS_ENUM(type, nom)                                                                         \
    enum nom : type nom;                                                                           \
    enum nom : type

// En C++, comme dans le SDK, le nom est celui de l'entier : deux options se réunissent sans
// conversion.
#define NS_OPTIONS(type, nom)                                                                      \
    type nom;                                                                                      \
    enum : type
