#include "plateforme/qt/apparence.hpp"

#include <QtGui/QGuiApplication>

#include <cstdlib>
#include <string_view>

namespace plateforme {
namespace {

struct Teintes {
    const char* fenetre;
    const char* champ;
    const char* texte;
    const char* secondaire;
    const char* bouton;
    const char* bordBouton;
    const char* enfonce;
    const char* accent;
    const char* accentEnfonce;
    const char* anneau;
};

// Contraste du texte secondaire sur la fenêtre : 5,5 au moins dans les deux apparences.
constexpr Teintes kClaires{"#f3f3f4", "#ffffff", "#1d1d1f", "#5d5d63", "#ffffff",
                           "#c4c4c8", "#e4e4e6", "#0a66d8", "#0850ab", "#0a66d8"};
constexpr Teintes kSombres{"#28282a", "#343437", "#f4f4f5", "#adadb3", "#48484b",
                           "#5c5c60", "#3a3a3d", "#0a66d8", "#0850ab", "#6cb2ff"};

bool estSombre(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < 128;
}

bool choisirSombre(const QPalette& bureau) {
    const char* voulu = std::getenv("LUMIVIA_APPARENCE");
    return voulu == nullptr ? estSombre(bureau) : std::string_view(voulu) == "sombre";
}

const Teintes& teintes() {
    return estSombre(QGuiApplication::palette()) ? kSombres : kClaires;
}

} // namespace

CouleursBouton couleursBouton(bool parDefaut, bool enfonce) {
    const Teintes& t = teintes();
    if (parDefaut) {
        const QColor fond(enfonce ? t.accentEnfonce : t.accent);
        return {fond, fond, QColor("#ffffff"), QColor("#ffffff")};
    }
    return {QColor(enfonce ? t.enfonce : t.bouton), QColor(t.bordBouton), QColor(t.texte),
            QColor(t.anneau)};
}

QPalette paletteAssistant(const QPalette& bureau) {
    const Teintes& t = choisirSombre(bureau) ? kSombres : kClaires;
    QPalette palette(QColor(t.bouton), QColor(t.fenetre));
    palette.setColor(QPalette::Window, QColor(t.fenetre));
    palette.setColor(QPalette::Base, QColor(t.champ));
    palette.setColor(QPalette::Button, QColor(t.bouton));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, QColor(t.texte));
    }
    palette.setColor(kRoleTexteSecondaire, QColor(t.secondaire));
    palette.setColor(QPalette::Highlight, QColor(t.accent));
    palette.setColor(QPalette::HighlightedText, QColor("#ffffff"));
    return palette;
}

} // namespace plateforme
