#include "plateforme/macos/vue_native.hpp"

namespace plateforme {

Pile::Pile(Orientation orientation) : Vue(macos::tenir([[NSStackView alloc] init])) {
    macos::vueDe<NSStackView>(*this).orientation = orientation == Orientation::horizontale
                                                       ? NSUserInterfaceLayoutOrientationHorizontal
                                                       : NSUserInterfaceLayoutOrientationVertical;
}

void Pile::setEspacement(double espacement) const {
    macos::vueDe<NSStackView>(*this).spacing = espacement;
}

void Pile::alignerAuDebut() const {
    macos::vueDe<NSStackView>(*this).alignment = NSLayoutAttributeLeading;
}

void Pile::alignerEnHaut() const {
    macos::vueDe<NSStackView>(*this).alignment = NSLayoutAttributeTop;
}

void Pile::setMarges(double haut, double gauche, double bas, double droite) const {
    macos::vueDe<NSStackView>(*this).edgeInsets = NSEdgeInsetsMake(haut, gauche, bas, droite);
}

void Pile::ajouter(const Vue& vue) const {
    [macos::vueDe<NSStackView>(*this) addArrangedSubview:vue.native().vue];
}

void Pile::vider() const {
    NSArray<NSView*>* vues = [macos::vueDe<NSStackView>(*this).arrangedSubviews copy];
    for (NSView* vue in vues) {
        [vue removeFromSuperview];
    }
    // AppKit n'a pas fini avec le bouton dont l'action vide la pile : les vues retirées vivent
    // jusqu'à la fin de l'événement en cours.
    CFAutorelease((__bridge_retained CFTypeRef)vues);
}

} // namespace plateforme
