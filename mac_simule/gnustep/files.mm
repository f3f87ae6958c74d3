// Les blocs et les files d'exécution, que GNUstep n'a pas.
//
// Du vrai dispatch, il manque tout ce que plateforme/macos n'appelle pas, et la réserve de fils :
// une tâche d'arrière-plan a le sien. De la file principale, voici ce qui est gardé : ses tâches
// passent dans l'ordre, une à la fois, dans tous les modes communs de la boucle ; l'alerte qu'ouvre
// une tâche retient les suivantes.
#import <AppKit/AppKit.h>

#include <cstring>
#include <deque>
#include <mutex>

extern "C" {

void* _Block_copy(const void* bloc);
void _Block_release(const void* bloc);
extern void* _NSConcreteStackBlock[];
extern void* _NSConcreteGlobalBlock[];
extern void* _NSConcreteMallocBlock[];

} // extern "C"

// Celle de struct objc_class, que l'exécutif de GCC ne montre pas.
static constexpr std::size_t kTailleDeClasse = 13 * sizeof(void*);

// GNUstep et ARC envoient des messages aux blocs.
@interface Bloc : NSObject
@end

@implementation Bloc

// Les trois genres de blocs de libBlocksRuntime sont des places où mettre une classe.
+ (void)load {
    id modele = [[self alloc] init]; // remplit la table des méthodes
    for (void** genre : {_NSConcreteStackBlock, _NSConcreteGlobalBlock, _NSConcreteMallocBlock}) {
        std::memcpy(genre, static_cast<const void*>(self), kTailleDeClasse);
    }
    NSDeallocateObject(modele);
}

- (id)retain {
    return static_cast<id>(_Block_copy(self));
}

- (id)copy {
    return static_cast<id>(_Block_copy(self));
}

- (oneway void)release {
    _Block_release(self);
}

@end

namespace {

// Le début de tout bloc ; la couche, elle, est compilée sans blocs.
struct DebutDeBloc {
    void* genre;
    int drapeaux;
    int reserve;
    void (*executer)(DebutDeBloc*);
};

using Tache = DebutDeBloc*;

class FilePrincipale {
  public:
    void deposer(Tache tache) {
        const std::lock_guard<std::mutex> garde(verrou_);
        taches_.push_back(tache);
    }

    void vider() {
        if (occupee_) {
            return;
        }
        occupee_ = true;
        while (Tache tache = prendre()) {
            tache->executer(tache);
            _Block_release(tache);
        }
        occupee_ = false;
    }

  private:
    Tache prendre() {
        const std::lock_guard<std::mutex> garde(verrou_);
        if (taches_.empty()) {
            return nullptr;
        }
        Tache premiere = taches_.front();
        taches_.pop_front();
        return premiere;
    }

    std::mutex verrou_;
    std::deque<Tache> taches_;
    bool occupee_ = false;
};

// Gardée jusqu'au bout : un fil peut y déposer pendant que le processus finit.
FilePrincipale& principale = *new FilePrincipale;

} // namespace

@interface Facteur : NSObject
+ (void)viderLaFilePrincipale;
+ (void)executer:(NSValue*)tache;
@end

@implementation Facteur

+ (void)viderLaFilePrincipale {
    principale.vider();
}

+ (void)executer:(NSValue*)valeur {
    NSAutoreleasePool* bassin = [[NSAutoreleasePool alloc] init];
    Tache tache = static_cast<Tache>([valeur pointerValue]);
    tache->executer(tache);
    _Block_release(tache);
    [bassin drain];
}

@end

extern "C" {

void* dispatch_get_global_queue(long, unsigned long) { return nullptr; }

void* dispatch_get_main_queue() { return &principale; }

void dispatch_async(void* file, Tache tache) {
    NSAutoreleasePool* bassin = [[NSAutoreleasePool alloc] init];
    Tache copie = static_cast<Tache>(_Block_copy(tache));
    if (file == &principale) {
        principale.deposer(copie);
        NSArray* modes = [NSArray arrayWithObjects:NSDefaultRunLoopMode, NSModalPanelRunLoopMode,
                                                   NSEventTrackingRunLoopMode, nil];
        [Facteur performSelectorOnMainThread:@selector(viderLaFilePrincipale)
                                  withObject:nil
                               waitUntilDone:NO
                                       modes:modes];
    } else {
        [NSThread detachNewThreadSelector:@selector(executer:)
                                 toTarget:[Facteur class]
                               withObject:[NSValue valueWithPointer:copie]];
    }
    [bassin drain];
}

} // extern "C"
