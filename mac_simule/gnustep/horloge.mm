// L'horloge du Mac simulé (etat/vitesse_horloge), pour ses minuteurs et pour les durées que
// l'adaptateur mesure : dix minutes d'attente s'essaient en dix secondes.
#import <Foundation/Foundation.h>

#include "mac_simule/faits/faits.hpp"

#include <cstdlib>
#include <objc/runtime.h>

namespace {

double vitesse() {
    static const double lue = std::strtod(
        faits::Mac::duProcessus().lire("vitesse_horloge").value_or("1").c_str(), nullptr);
    return lue > 0 ? lue : 1;
}

using Programmation = id (*)(id, SEL, NSTimeInterval, BOOL, id);
Programmation ordinaire;

id programmer(id classe, SEL selecteur, NSTimeInterval intervalle, BOOL repete, id bloc) {
    return ordinaire(classe, selecteur, intervalle / vitesse(), repete, bloc);
}

} // namespace

@implementation NSTimer (Horloge)

+ (void)load {
    Method methode = class_getClassMethod(self, @selector(scheduledTimerWithTimeInterval:
                                                                                 repeats:block:));
    ordinaire = reinterpret_cast<Programmation>(
        method_setImplementation(methode, reinterpret_cast<IMP>(&programmer)));
}

@end

// --wrap de l'éditeur de liens met celle-ci à la place de std::chrono::steady_clock::now, qui rend
// des nanosecondes ; le robot, dans sa bibliothèque, garde la vraie.
extern "C" long __real__ZNSt6chrono3_V212steady_clock3nowEv();

extern "C" long __wrap__ZNSt6chrono3_V212steady_clock3nowEv() {
    return static_cast<long>(static_cast<double>(__real__ZNSt6chrono3_V212steady_clock3nowEv()) *
                             vitesse());
}
