// Les types premiers d'Objective-C, tels que le SDK de macOS les donne.
#pragma once

typedef struct objc_class* Class;

typedef struct objc_object {
    Class isa;
}* id;
typedef struct objc_selector* SEL;
typedef signed char BOOL; // celui des Mac Intel

#define YES ((BOOL)1)
#define NO ((BOOL)0)
#define nil __null
#define __unused __attribute__((__unused__))
