// IOKit : la recherche d'un périphérique dans le registre des entrées-sorties.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <mach/kern_return.h>
#include <mach/port.h>

typedef mach_port_t io_object_t;
typedef io_object_t io_iterator_t;
typedef io_object_t io_registry_entry_t;
typedef io_object_t io_service_t;
typedef uint32_t IOOptionBits;

extern "C" {

extern const mach_port_t kIOMasterPortDefault;

CFMutableDictionaryRef IOServiceMatching(const char* nom);
kern_return_t IOServiceGetMatchingServices(mach_port_t port, CFDictionaryRef criteres,
                                           io_iterator_t* trouves);
io_object_t IOIteratorNext(io_iterator_t trouves);
CFTypeRef IORegistryEntryCreateCFProperty(io_registry_entry_t entree, CFStringRef cle,
                                          CFAllocatorRef allocateur, IOOptionBits options);
kern_return_t IOObjectRelease(io_object_t objet);

} // extern "C"
