// Ce que Foundation, CoreFoundation et IOKit répondent d'un Mac, et que GNUstep n'a pas : les
// réponses sont les faits du Mac simulé. Ce qui est ici est notre modèle, pas une vérité : le vrai
// registre a d'autres appareils et répond par morceaux, et loginwindow demande d'abord à la
// personne.
#import <Foundation/Foundation.h>

#include "mac_simule/faits/faits.hpp"
#include "mac_simule/gnustep/attaches.hpp"
#include "mac_simule/gnustep/references.hpp"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <spawn.h>
#include <sstream>
#include <string>
#include <vector>

namespace {

const faits::Mac& mac() { return faits::Mac::duProcessus(); }

NSString* texte(const std::string& octets) {
    return [NSString stringWithUTF8String:octets.c_str()];
}

// L'assistant est ouvert par son chemin sous la racine du Mac ; dans l'espace où il vit, le même
// paquet est à sa place de Mac.
NSString* cheminDeMac(NSString* chemin) {
    NSString* racine = texte(mac().racine());
    return [chemin hasPrefix:racine] ? [chemin substringFromIndex:[racine length]] : chemin;
}

} // namespace

// --- Foundation ---

struct VersionDeSysteme {
    NSInteger majeure, mineure, correctif;
};

// GNUstep donne la version du noyau de Linux.
@implementation NSProcessInfo (Mac)

- (VersionDeSysteme)operatingSystemVersion {
    VersionDeSysteme lue{};
    const std::string version = mac().lire("version").value_or("");
    std::sscanf(version.c_str(), "%ld.%ld.%ld", &lue.majeure, &lue.mineure, &lue.correctif);
    return lue;
}

@end

@implementation NSFileManager (Mac)

- (NSURL*)homeDirectoryForCurrentUser {
    return [NSURL fileURLWithPath:NSHomeDirectory() isDirectory:YES];
}

@end

// GNUstep cherche le paquet à côté de l'exécutable, et les bibliothèques ailleurs qu'un Mac. Ses
// ressources et Info.plist, il les trouve par deux liens posés dans la copie du paquet.
@implementation NSBundle (Mac)

+ (NSBundle*)mainBundle {
    static NSBundle* principal = nil;
    if (principal == nil) {
        NSString* chemin = [[[NSProcessInfo processInfo] arguments] objectAtIndex:0];
        for (int etage = 0; etage < 3; ++etage) { // MacOS, Contents, le paquet
            chemin = [chemin stringByDeletingLastPathComponent];
        }
        principal = [[NSBundle alloc] initWithPath:cheminDeMac(chemin)];
    }
    return principal;
}

- (NSString*)privateFrameworksPath {
    return [[self bundlePath] stringByAppendingPathComponent:@"Contents/Frameworks"];
}

@end

// Une seule phrase est comprise : celle qui demande à loginwindow de redémarrer.
@interface NSAppleScript (Mac)
@end

static const char kSource = 0;

@implementation NSAppleScript (Mac)

- (instancetype)initWithSource:(NSString*)source {
    self = [super init];
    objc_setAssociatedObject(self, &kSource, source, OBJC_ASSOCIATION_RETAIN_NONATOMIC);
    return self;
}

- (id)executeAndReturnError:(NSDictionary**)erreur {
    NSString* compris = @"tell application \"loginwindow\" to «event aevtrrst»";
    if ([compris isEqual:objc_getAssociatedObject(self, &kSource)]) {
        // Une demande qui ne s'écrit pas est perdue, comme un événement refusé.
        static_cast<void>(mac().ecrire("redemarrage_demande", "oui\n"));
    }
    return nil;
}

@end

// --- CoreFoundation : chaque objet est celui de Foundation ---

namespace {

// Ce qui a été donné au programme. La référence d'ici s'ajoute aux siennes, et reste.
class Donnes {
  public:
    id noter(id objet) {
        const std::lock_guard<std::mutex> garde(verrou_);
        objets_.push_back([objet retain]);
        return objet;
    }

    unsigned ouvrir(id objet) {
        const std::lock_guard<std::mutex> garde(verrou_);
        poignees_.push_back([objet retain]);
        return static_cast<unsigned>(poignees_.size()); // zéro n'est rien
    }

    id lire(unsigned poignee) {
        const std::lock_guard<std::mutex> garde(verrou_);
        return poignees_.at(poignee - 1);
    }

    void fermer(unsigned poignee) {
        const std::lock_guard<std::mutex> garde(verrou_);
        id& objet = poignees_.at(poignee - 1);
        [objet release];
        objet = nil;
    }

    long tenues() {
        const std::lock_guard<std::mutex> garde(verrou_);
        long total = 0;
        for (id& objet : objets_) {
            const auto ailleurs = static_cast<long>([objet retainCount]) - 1;
            total += ailleurs;
            if (ailleurs == 0) { // il rend ce qu'il tient lui-même : les suivants s'y comptaient
                [objet release];
                objet = nil;
            }
        }
        objets_.erase(std::remove(objets_.begin(), objets_.end(), nil), objets_.end());
        for (id objet : poignees_) {
            total += objet == nil ? 0 : 1;
        }
        return total;
    }

  private:
    std::mutex verrou_;
    std::vector<id> objets_;
    std::vector<id> poignees_;
};

Donnes& donnes = *new Donnes;

} // namespace

namespace gnustep {

long referencesTenues() { return donnes.tenues(); }

} // namespace gnustep

extern "C" {

// Clang écrit les textes constants de CoreFoundation dans une forme à eux.
struct TexteConstant {
    const void* classe;
    int drapeaux;
    const char* octets;
    long longueur;
};

int __CFConstantStringClassReference[32];
const void* kCFAllocatorDefault = nullptr;
extern const unsigned kIOMasterPortDefault;
const unsigned kIOMasterPortDefault = 0;

const void* CFRetain(const void* objet) {
    return [static_cast<id>(const_cast<void*>(objet)) retain];
}

void CFRelease(const void* objet) { [static_cast<id>(const_cast<void*>(objet)) release]; }

const void* CFAutorelease(const void* objet) {
    return [static_cast<id>(const_cast<void*>(objet)) autorelease];
}

const void* CFNumberCreate(const void*, long, const void* valeur) {
    return donnes.noter([[NSNumber alloc] initWithInt:*static_cast<const int*>(valeur)]);
}

void CFDictionarySetValue(NSMutableDictionary* dictionnaire, const TexteConstant* cle, id valeur) {
    [dictionnaire setObject:valeur forKey:texte(cle->octets)];
}

// --- IOKit : le registre est etat/usb ---

NSMutableDictionary* IOServiceMatching(const char* classe) {
    NSMutableDictionary* criteres = donnes.noter([[NSMutableDictionary alloc] init]);
    [criteres setObject:texte(classe) forKey:@"IOProviderClass"];
    return criteres;
}

int IOServiceGetMatchingServices(unsigned, NSDictionary* criteres, unsigned* trouves) {
    NSMutableArray* appareils = [NSMutableArray array];
    const bool usb = [[criteres objectForKey:@"IOProviderClass"] isEqual:@"IOUSBHostDevice"];
    for (const std::string& nom : usb ? mac().noms("usb") : std::vector<std::string>()) {
        const std::string fait = mac().texte("usb/" + nom);
        const faits::Peripherique lu = faits::lirePeripherique(fait);
        if (lu.fabricant == [[criteres objectForKey:@"idVendor"] unsignedIntValue] &&
            lu.produit == [[criteres objectForKey:@"idProduct"] unsignedIntValue]) {
            NSMutableDictionary* appareil = [NSMutableDictionary dictionary];
            const std::size_t nombre = fait.find("serie_nombre ");
            if (lu.serie) {
                [appareil setObject:texte(*lu.serie) forKey:@"USB Serial Number"];
            } else if (nombre != std::string::npos) {
                const int serie = std::stoi(fait.substr(nombre + std::strlen("serie_nombre ")));
                [appareil setObject:[NSNumber numberWithInt:serie] forKey:@"USB Serial Number"];
            }
            [appareils addObject:appareil];
        }
    }
    *trouves = donnes.ouvrir([appareils objectEnumerator]);
    [criteres release]; // la recherche en consomme une référence
    return 0;
}

unsigned IOIteratorNext(unsigned trouves) {
    id suivant = [donnes.lire(trouves) nextObject];
    return suivant == nil ? 0 : donnes.ouvrir(suivant);
}

const void* IORegistryEntryCreateCFProperty(unsigned appareil, const TexteConstant* cle,
                                            const void*, unsigned) {
    id valeur = [donnes.lire(appareil) objectForKey:texte(cle->octets)];
    return valeur == nil ? nil : donnes.noter([valeur retain]);
}

int IOObjectRelease(unsigned objet) {
    donnes.fermer(objet);
    return 0;
}

// Sur un Mac, hériter nomme un descripteur de plus ; ici, c'est le dernier, et le reste se ferme.
int posix_spawn_file_actions_addinherit_np(posix_spawn_file_actions_t* actions, int) {
    return posix_spawn_file_actions_addclosefrom_np(actions, 3);
}

} // extern "C"
