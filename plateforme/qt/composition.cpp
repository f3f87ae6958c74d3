#include "plateforme/qt/composition.hpp"

#include "plateforme/posix/typographie.hpp"

#include <QtCore/QStringList>
#include <QtGui/QFontMetrics>

namespace plateforme {
namespace {

constexpr QChar kSelecteurEmoji(0xFE0F);
constexpr QChar kInfo(0x24D8); // ⓘ
constexpr QChar kLiant(0x2060);

QString policeEmoji() {
    return QStringLiteral("Noto Color Emoji");
}

// La police de base dessine elle-même ⚠ au trait : un caractère suivi du sélecteur d'émoji est donc
// confié explicitement à la police en couleur.
QString emoji(QChar signe) {
    return QStringLiteral("<span style=\"font-family:'%1'\">%2%3</span>")
        .arg(policeEmoji(), signe, kSelecteurEmoji);
}

QString enHtml(const QString& ligne) {
    QString riche;
    for (qsizetype i = 0; i < ligne.size(); ++i) {
        if (i + 1 < ligne.size() && ligne[i + 1] == kSelecteurEmoji) {
            riche += emoji(ligne[i]);
            ++i;
        } else {
            riche += QString(ligne[i]).toHtmlEscaped();
        }
    }
    return riche;
}

QString prefixe(const QString& ligne) {
    const std::string texte = ligne.toStdString();
    return QString::fromStdString(texte.substr(0, retraitSuspendu(texte)));
}

int largeurSuspendue(const QString& ligne, const QFont& police) {
    const QString debut = prefixe(ligne);
    QFont duSigne = police;
    if (debut.contains(kSelecteurEmoji)) {
        duSigne.setFamily(policeEmoji());
    }
    const QString signe = debut.trimmed();
    const QString espaces(debut.size() - signe.size(), u' ');
    return qRound(QFontMetricsF(duSigne).horizontalAdvance(signe) +
                  QFontMetricsF(police).horizontalAdvance(espaces));
}

// Un paragraphe vide garde sa ligne.
QString paragraphe(const QString& ligne, const QFont& police) {
    return QStringLiteral("<p style=\"margin-top:0px; margin-bottom:0px; margin-left:%1px; "
                          "text-indent:-%1px; white-space:pre-wrap; line-height:%2px; "
                          "-qt-line-height-type:fixed%3\">%4</p>")
        .arg(largeurSuspendue(ligne, police))
        .arg(QFontMetrics(police).lineSpacing())
        .arg(ligne.isEmpty() ? QStringLiteral("; -qt-paragraph-type:empty") : QString(),
             ligne.isEmpty() ? QStringLiteral("<br>") : enHtml(ligne));
}

} // namespace

bool demandeUnTexteRiche(const QString& texte) {
    for (const QString& ligne : texte.split(u'\n')) {
        if (!prefixe(ligne).isEmpty()) {
            return true;
        }
    }
    return texte.contains(kSelecteurEmoji) || texte.contains(kInfo) || texte.contains(kLiant);
}

QString texteRiche(const QString& texte, const QFont& police) {
    QString riche;
    for (const QString& ligne : texte.split(u'\n')) {
        riche += paragraphe(ligne, police);
    }
    return riche;
}

QString sansCoupureFautive(const QString& texte) {
    return QString::fromStdString(lier(texte.toStdString()));
}

QString texteACopier(const QString& selection) {
    // La sélection d'une étiquette sépare ses lignes à la manière d'un document.
    QString texte = selection;
    texte.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
    return QString::fromStdString(delier(texte.toStdString()));
}

} // namespace plateforme
