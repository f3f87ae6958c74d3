#include "plateforme/qt/composition.hpp"

namespace plateforme {
namespace {

constexpr QChar kSelecteurEmoji(0xFE0F);
constexpr QChar kInfo(0x24D8); // ⓘ
constexpr QChar kInsecable(0x00A0);
constexpr QChar kLiant(0x2060); // ni largeur, ni coupure

// La police de base dessine elle-même ⚠ au trait : un caractère suivi du sélecteur d'émoji est donc
// confié explicitement à la police en couleur.
QString emoji(QChar signe) {
    return QStringLiteral("<span style=\"font-family:'Noto Color Emoji'\">%1%2</span>")
        .arg(signe)
        .arg(kSelecteurEmoji);
}

} // namespace

bool demandeUnTexteRiche(const QString& texte) {
    return texte.contains(kSelecteurEmoji) || texte.contains(kInfo) || texte.contains(kLiant);
}

QString texteRiche(const QString& texte, int hauteurDeLigne) {
    QString riche;
    for (qsizetype i = 0; i < texte.size(); ++i) {
        if (i + 1 < texte.size() && texte[i + 1] == kSelecteurEmoji) {
            riche += emoji(texte[i]);
            ++i;
        } else {
            riche += QString(texte[i]).toHtmlEscaped();
        }
    }
    return QStringLiteral("<div style=\"white-space:pre-wrap; line-height:%1px; "
                          "-qt-line-height-type:fixed\">%2</div>")
        .arg(hauteurDeLigne)
        .arg(riche);
}

QString sansCoupureFautive(const QString& texte) {
    QString lie = texte;
    lie.replace(QStringLiteral("« /"), QStringLiteral("« /") + kLiant); // un chemin, d'une pièce
    lie.replace(QStringLiteral("« "), QStringLiteral("«") + kInsecable);
    lie.replace(QStringLiteral("n° "), QStringLiteral("n°") + kInsecable);
    for (const QChar signe : QStringLiteral("»:;?!")) {
        lie.replace(QStringLiteral(" ") + signe, kInsecable + QString(signe));
    }
    return lie;
}

QString texteACopier(const QString& selection) {
    QString texte = selection;
    texte.remove(kLiant).replace(kInsecable, u' ');
    // La sélection d'une étiquette sépare ses lignes à la manière d'un document.
    return texte.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

} // namespace plateforme
