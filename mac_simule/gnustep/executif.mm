// Ce que clang attend d'un exécutif qui connaît ARC (-fobjc-runtime=gnustep-1.9), au-dessus de
// celui de GCC, le seul de Debian, que GNUstep emploie et qui ne connaît pas ARC. Ce fichier-ci,
// comme toute cette couche, est compilé pour l'exécutif de GCC et compte ses références à la main.
//
// De ce que fait l'exécutif d'Apple, il manque les références faibles et le retour d'un objet sans
// passer par un bassin : plateforme/macos n'a pas des premières, et le second n'est qu'une
// économie.
#import <Foundation/Foundation.h>

#include "mac_simule/gnustep/attaches.hpp"

#include <map>
#include <mutex>
#include <objc/message.h>
#include <objc/runtime.h>

namespace {

// Les structures que clang écrit dans chaque objet compilé, version 9, celle de gnustep-1.9.
struct Ivar9 {
    const char* nom;
    const char* type;
    int decalage;
};

struct Ivars9 {
    int nombre;
    Ivar9 premiere;
};

struct Protocoles9;

struct Protocole9 {
    std::size_t version;
    const char* nom;
    Protocoles9* adoptes;
};

struct Protocoles9 {
    Protocoles9* suivants;
    std::size_t nombre;
    Protocole9* premier;
};

struct Classe9 {
    Classe9* meta;
    const char* parente;
    const char* nom;
    long version;
    unsigned long drapeaux;
    long taille;
    Ivars9* ivars;
    void* methodes;
    void* remplisParLExecutif[3];
    Protocoles9* protocoles;
    void* ramasseMiettes;
    long interface;
    int** decalages;
};

struct Categorie9 {
    const char* nom;
    const char* classe;
    void* methodes[2];
    Protocoles9* protocoles;
};

struct Symboles9 {
    unsigned long nombreDeSelecteurs;
    void* selecteurs;
    unsigned short nombreDeClasses;
    unsigned short nombreDeCategories;
    void* definitions[1];
};

struct Module {
    long version;
    long taille;
    const char* nom;
    Symboles9* symboles;
};

constexpr long kVersionDeGCC = 8;
constexpr long kTailleDeGCC = 32;
constexpr std::size_t kProtocoleDeClang = 3;
constexpr std::size_t kProtocoleDeGCC = 2;
constexpr unsigned long kClasseExtensible = 0x10;

void adapterProtocoles(Protocoles9* liste) {
    for (; liste != nullptr; liste = liste->suivants) {
        for (std::size_t i = 0; i < liste->nombre; ++i) {
            Protocole9* protocole = (&liste->premier)[i];
            if (protocole->version == kProtocoleDeClang) {
                protocole->version = kProtocoleDeGCC;
                adapterProtocoles(protocole->adoptes);
            }
        }
    }
}

// Clang ne connaît pas la taille de la classe mère : il compte celle des ivars à partir d'elle, en
// négatif, et c'est à l'exécutif de poser l'une à la suite de l'autre.
void adapterClasse(Classe9& classe) {
    classe.drapeaux &= ~kClasseExtensible;
    classe.meta->drapeaux &= ~kClasseExtensible;
    classe.meta->taille =
        static_cast<long>(class_getInstanceSize(object_getClass(objc_getClass("NSObject"))));
    if (classe.taille <= 0) {
        const auto debut =
            static_cast<int>(class_getInstanceSize(objc_lookUpClass(classe.parente)));
        classe.taille = debut - classe.taille;
        for (int i = 0; classe.ivars != nullptr && i < classe.ivars->nombre; ++i) {
            Ivar9& ivar = (&classe.ivars->premiere)[i];
            ivar.decalage += debut;
            *classe.decalages[i] = ivar.decalage;
        }
    }
    adapterProtocoles(classe.protocoles);
}

} // namespace

extern "C" {

void __real___objc_exec_class(Module* module);

// Chaque objet compilé se présente ici avant que le programme commence (--wrap de l'éditeur de
// liens) : celui que clang a écrit pour ARC prend la forme que l'exécutif de GCC admet.
void __wrap___objc_exec_class(Module* module) {
    if (module->version != kVersionDeGCC) {
        module->version = kVersionDeGCC;
        module->taille = kTailleDeGCC;
        Symboles9& symboles = *module->symboles;
        void** definition = symboles.definitions;
        for (int i = 0; i < symboles.nombreDeClasses; ++i) {
            adapterClasse(*static_cast<Classe9*>(*definition++));
        }
        for (int i = 0; i < symboles.nombreDeCategories; ++i) {
            adapterProtocoles(static_cast<Categorie9*>(*definition++)->protocoles);
        }
    }
    __real___objc_exec_class(module);
}

// Un envoi de message passe par une case qui porte la méthode en cinquième place.
struct CaseDeMethode {
    void* inutilisees[4];
    IMP methode;
};

CaseDeMethode* objc_msg_lookup_sender(id* destinataire, SEL selecteur, id) {
    static thread_local CaseDeMethode trouvee;
    trouvee.methode = objc_msg_lookup(*destinataire, selecteur);
    return &trouvee;
}

CaseDeMethode* objc_slot_lookup_super(struct objc_super* mere, SEL selecteur) {
    static thread_local CaseDeMethode trouvee;
    trouvee.methode = objc_msg_lookup_super(mere, selecteur);
    return &trouvee;
}

id objc_retain(id objet) { return [objet retain]; }

void objc_release(id objet) { [objet release]; }

id objc_autorelease(id objet) { return [objet autorelease]; }

id objc_retainAutorelease(id objet) { return [[objet retain] autorelease]; }

id objc_autoreleaseReturnValue(id objet) { return [objet autorelease]; }

id objc_retainAutoreleaseReturnValue(id objet) { return [[objet retain] autorelease]; }

id objc_retainAutoreleasedReturnValue(id objet) { return [objet retain]; }

id objc_unsafeClaimAutoreleasedReturnValue(id objet) { return objet; }

id objc_retainBlock(id bloc) { return [bloc copy]; }

void objc_storeStrong(id* place, id objet) {
    id ancien = *place;
    *place = [objet retain];
    [ancien release];
}

void* objc_autoreleasePoolPush() { return [[NSAutoreleasePool alloc] init]; }

void objc_autoreleasePoolPop(void* bassin) { [static_cast<NSAutoreleasePool*>(bassin) drain]; }

} // extern "C"

namespace {

// Les objets attachés à d'autres. L'exécutif de GCC n'en a pas : ils se rendent quand la racine des
// classes détruit celui qui les porte.
class Attaches {
  public:
    static Attaches& communes() {
        static Attaches& uniques = *new Attaches;
        return uniques;
    }

    void poser(id porteur, const void* cle, id valeur) {
        const std::lock_guard<std::recursive_mutex> garde(verrou_);
        id& place = tenues_[porteur][cle];
        id ancienne = place;
        place = [valeur retain];
        [ancienne release];
    }

    id lire(id porteur, const void* cle) {
        const std::lock_guard<std::recursive_mutex> garde(verrou_);
        const auto siennes = tenues_.find(porteur);
        return siennes == tenues_.end() ? nil : siennes->second[cle];
    }

    void rendre(id porteur) {
        std::map<const void*, id> siennes;
        {
            const std::lock_guard<std::recursive_mutex> garde(verrou_);
            const auto ici = tenues_.find(porteur);
            if (ici == tenues_.end()) {
                return;
            }
            siennes.swap(ici->second);
            tenues_.erase(ici);
        }
        for (const auto& [cle, valeur] : siennes) {
            [valeur release];
        }
    }

  private:
    Attaches() {
        Method fin = class_getInstanceMethod([NSObject class], @selector(dealloc));
        ordinaire_ = reinterpret_cast<void (*)(id, SEL)>(
            method_setImplementation(fin, reinterpret_cast<IMP>(+[](id objet, SEL selecteur) {
                                         communes().rendre(objet);
                                         communes().ordinaire_(objet, selecteur);
                                     })));
    }

    std::recursive_mutex verrou_;
    std::map<id, std::map<const void*, id>> tenues_;
    void (*ordinaire_)(id, SEL);
};

} // namespace

extern "C" {

// La seule façon dont on s'en serve : la valeur est tenue.
void objc_setAssociatedObject(id porteur, const void* cle, id valeur, std::uintptr_t) {
    Attaches::communes().poser(porteur, cle, valeur);
}

id objc_getAssociatedObject(id porteur, const void* cle) {
    return Attaches::communes().lire(porteur, cle);
}

} // extern "C"

// Le personnage des fonctions qui mêlent C++ et Objective-C : aucune exception d'Objective-C ne
// traverse plateforme/macos, celui du C++ suffit.
asm(R"(
    .text
    .globl __gnustep_objcxx_personality_v0
    .type __gnustep_objcxx_personality_v0, @function
__gnustep_objcxx_personality_v0:
    jmp __gxx_personality_v0@PLT
)");
