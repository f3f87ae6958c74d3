#include "plateforme/peripheriques_usb.hpp"
#include "plateforme/macos/textes.hpp"

#include <IOKit/IOKitLib.h>

namespace plateforme {
namespace {

void exiger(CFMutableDictionaryRef criteres, CFStringRef cle, std::int32_t nombre) {
    CFNumberRef valeur = CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt32Type, &nombre);
    CFDictionarySetValue(criteres, cle, valeur);
    CFRelease(valeur);
}

std::optional<std::string> numeroDeSerie(io_service_t peripherique) {
    CFTypeRef propriete = IORegistryEntryCreateCFProperty(peripherique, CFSTR("USB Serial Number"),
                                                          kCFAllocatorDefault, 0);
    id valeur = (__bridge_transfer id)propriete;
    if (![valeur isKindOfClass:NSString.class]) {
        return std::nullopt;
    }
    return macos::versTexte(valeur);
}

} // namespace

std::vector<std::optional<std::string>> numerosDeSerieUSB(std::uint16_t fabricant,
                                                          std::uint16_t produit) {
    std::vector<std::optional<std::string>> numeros;
    CFMutableDictionaryRef criteres = IOServiceMatching("IOUSBHostDevice");
    if (criteres == nullptr) {
        return numeros;
    }
    exiger(criteres, CFSTR("idVendor"), fabricant);
    exiger(criteres, CFSTR("idProduct"), produit);

    // La recherche consomme une référence, qu'elle réussisse ou non.
    CFRetain(criteres);
    io_iterator_t trouves = 0;
    if (IOServiceGetMatchingServices(kIOMasterPortDefault, criteres, &trouves) == KERN_SUCCESS) {
        @autoreleasepool {
            while (const io_service_t peripherique = IOIteratorNext(trouves)) {
                numeros.push_back(numeroDeSerie(peripherique));
                IOObjectRelease(peripherique);
            }
        }
        IOObjectRelease(trouves);
    }
    CFRelease(criteres);
    return numeros;
}

} // namespace plateforme
