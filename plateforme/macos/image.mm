#include "plateforme/macos/textes.hpp"
#include "plateforme/macos/vue_native.hpp"

namespace plateforme {

std::optional<VueImage> VueImage::lire(const std::string& chemin, const std::string& description) {
    NSURL* adresse = [NSURL fileURLWithPath:macos::versNSString(chemin)];
    NSImage* image = [[NSImage alloc] initWithContentsOfURL:adresse];
    if (image == nil) {
        return std::nullopt;
    }
    NSImageView* vue = [NSImageView imageViewWithImage:image];
    vue.imageScaling = NSImageScaleProportionallyUpOrDown;
    vue.accessibilityLabel = macos::versNSString(description);
    return VueImage(macos::tenir(vue));
}

TailleImage VueImage::tailleImage() const {
    const NSSize taille = macos::vueDe<NSImageView>(*this).image.size;
    return {taille.width, taille.height};
}

void VueImage::imposerTaille(double largeur, double hauteur) const {
    NSView* vue = native().vue;
    [NSLayoutConstraint activateConstraints:@[
        [vue.heightAnchor constraintEqualToConstant:hauteur],
        [vue.widthAnchor constraintEqualToConstant:largeur]
    ]];
}

} // namespace plateforme
