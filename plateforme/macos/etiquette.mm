// Étiquettes : celles de plusieurs lignes montrent leur texte dans sa typographie.
#include "plateforme/macos/textes.hpp"
#include "plateforme/macos/vue_native.hpp"
#include "plateforme/posix/typographie.hpp"

#include <algorithm>

@interface EtiquetteComposee : NSTextField
@end

@implementation EtiquetteComposee

// Ce que les aides à l'accessibilité énoncent.
- (NSString*)accessibilityValue {
    return plateforme::macos::sansLiens(self.stringValue);
}

@end

namespace plateforme {
namespace {

NSDictionary<NSString*, id>* attributs(NSTextField* champ, const std::string& prefixe) {
    NSMutableDictionary<NSString*, id>* choisis = [NSMutableDictionary dictionary];
    [choisis setObject:champ.font forKey:NSFontAttributeName];
    [choisis setObject:champ.textColor forKey:NSForegroundColorAttributeName];
    NSMutableParagraphStyle* paragraphe = [[NSMutableParagraphStyle alloc] init];
    paragraphe.alignment = champ.alignment;
    paragraphe.lineBreakMode = champ.lineBreakMode;
    paragraphe.headIndent = [macos::versNSString(prefixe) sizeWithAttributes:choisis].width;
    [choisis setObject:paragraphe forKey:NSParagraphStyleAttributeName];
    return choisis;
}

NSAttributedString* composer(NSTextField* champ, const std::string& ligne) {
    NSDictionary<NSString*, id>* siens = attributs(champ, ligne.substr(0, retraitSuspendu(ligne)));
    return [[NSAttributedString alloc] initWithString:macos::versNSString(ligne) attributes:siens];
}

// Chaque ligne du texte a son retrait. Une étiquette dont le texte a des attributs n'écoute plus sa
// police ni sa couleur : elles s'y écrivent.
void montrer(NSTextField* champ, const std::string& texte) {
    NSMutableAttributedString* compose = [[NSMutableAttributedString alloc] init];
    const std::string lie = lier(texte);
    for (std::size_t debut = 0; debut < lie.size();) {
        const std::size_t fin = std::min(lie.find('\n', debut), lie.size() - 1) + 1;
        [compose appendAttributedString:composer(champ, lie.substr(debut, fin - debut))];
        debut = fin;
    }
    champ.attributedStringValue = compose;
}

bool estComposee(NSTextField* champ) { return [champ isKindOfClass:EtiquetteComposee.class]; }

void remontrer(NSTextField* champ) {
    if (estComposee(champ)) {
        montrer(champ, macos::versTexte(macos::sansLiens(champ.stringValue)));
    }
}

} // namespace

Etiquette Etiquette::simple(const std::string& texte) {
    return Etiquette(macos::tenir([NSTextField labelWithString:macos::versNSString(texte)]));
}

Etiquette Etiquette::multiligne(const std::string& texte) {
    NSTextField* champ = [EtiquetteComposee wrappingLabelWithString:@""];
    champ.allowsEditingTextAttributes = YES; // sans quoi la sélection les efface
    const Etiquette etiquette(macos::tenir(champ));
    etiquette.setTexte(texte);
    return etiquette;
}

void Etiquette::setTexte(const std::string& texte) const {
    NSTextField* champ = macos::vueDe<NSTextField>(*this);
    if (estComposee(champ)) {
        montrer(champ, texte);
    } else {
        champ.stringValue = macos::versNSString(texte);
    }
}

void Etiquette::setPolice(double taille, bool gras) const {
    NSTextField* champ = macos::vueDe<NSTextField>(*this);
    champ.font = gras ? [NSFont boldSystemFontOfSize:taille] : [NSFont systemFontOfSize:taille];
    remontrer(champ);
}

void Etiquette::setCouleurSecondaire() const {
    NSTextField* champ = macos::vueDe<NSTextField>(*this);
    champ.textColor = NSColor.secondaryLabelColor;
    remontrer(champ);
}

void Etiquette::setLargeurMaximale(double largeur) const {
    macos::vueDe<NSTextField>(*this).preferredMaxLayoutWidth = largeur;
}

} // namespace plateforme
