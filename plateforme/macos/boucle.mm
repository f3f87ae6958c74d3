#include "plateforme/boucle.hpp"

#import <Foundation/Foundation.h>

#include <chrono>
#include <dispatch/dispatch.h>

namespace plateforme {
namespace {

void executerSur(dispatch_queue_t file, std::function<void()> tache) {
    const std::function<void()> aFaire = std::move(tache);
    dispatch_async(file, ^{
      @autoreleasepool {
          aFaire();
      }
    });
}

} // namespace

void executerEnArrierePlan(std::function<void()> tache) {
    executerSur(dispatch_get_global_queue(QOS_CLASS_DEFAULT, 0), std::move(tache));
}

void executerSurPrincipal(std::function<void()> tache) {
    executerSur(dispatch_get_main_queue(), std::move(tache));
}

double secondes() {
    const auto ecoulees = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(ecoulees).count();
}

struct ActiviteUrgente::Natif {
    id<NSObject> __strong activite;
};

// La précision des minuteurs, et pas d'endormissement de l'application ; le Mac, lui, garde le
// droit de se mettre en veille.
ActiviteUrgente::ActiviteUrgente(const char* raison) : natif_(std::make_unique<Natif>()) {
    @autoreleasepool {
        natif_->activite = [NSProcessInfo.processInfo
            beginActivityWithOptions:NSActivityLatencyCritical |
                                     NSActivityUserInitiatedAllowingIdleSystemSleep
                              reason:@(raison)];
    }
}

ActiviteUrgente::~ActiviteUrgente() {
    @autoreleasepool {
        [NSProcessInfo.processInfo endActivity:natif_->activite];
    }
}

struct Minuteur::Natif {
    NSTimer* __strong minuteur;
};

// Le fil principal programme le minuteur dans sa boucle, pour le mode par défaut seulement : une
// alerte le suspend.
Minuteur::Minuteur(double intervalleEnSecondes, std::function<void()> battement)
    : natif_(std::make_unique<Natif>()) {
    const std::function<void()> aFaire = std::move(battement);
    void (^bloc)(NSTimer*) = ^(NSTimer*) {
      // Le battement peut détruire le minuteur, et ce bloc avec lui.
      const std::function<void()> appel = aFaire;
      appel();
    };
    natif_->minuteur = [NSTimer scheduledTimerWithTimeInterval:intervalleEnSecondes
                                                       repeats:YES
                                                         block:bloc];
}

Minuteur::~Minuteur() { [natif_->minuteur invalidate]; }

} // namespace plateforme
