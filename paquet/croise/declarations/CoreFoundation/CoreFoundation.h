// CoreFoundation : ce que la lecture du registre des entrées-sorties et les vues en appellent.
#pragma once

#include <stdint.h>

typedef const void* CFTypeRef;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef const struct __CFString* CFStringRef;
typedef const struct __CFNumber* CFNumberRef;
typedef const struct __CFDictionary* CFDictionaryRef;
typedef struct __CFDictionary* CFMutableDictionaryRef;

typedef long CFIndex;
typedef CFIndex CFNumberType;

enum : CFNumberType { kCFNumberSInt32Type = 3 };

#define CFSTR(texte) ((CFStringRef)__builtin___CFStringMakeConstantString("" texte ""))

extern "C" {

extern const CFAllocatorRef kCFAllocatorDefault;

CFTypeRef CFAutorelease(CFTypeRef objet);
CFTypeRef CFRetain(CFTypeRef objet);
void CFRelease(CFTypeRef objet);
void CFDictionarySetValue(CFMutableDictionaryRef dictionnaire, const void* cle, const void* valeur);
CFNumberRef CFNumberCreate(CFAllocatorRef allocateur, CFNumberType genre, const void* valeur);

} // extern "C"
