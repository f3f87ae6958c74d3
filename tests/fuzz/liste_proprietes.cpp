// La liste de propriétés que l'on écrit, relue par un autre lecteur : rien ne s'y perd.
#include "plateforme/liste_proprietes.hpp"

#include "fuzz/entree.hpp"

#include <QtCore/QXmlStreamReader>

#include <algorithm>

namespace {

using plateforme::DictionnairePropriete;
using plateforme::ValeurPropriete;

// Vide, un booléen ; coupé par des tabulations verticales, une suite de textes.
ValeurPropriete valeur(const QString& champ) {
    std::vector<std::string> suite;
    for (const QString& texte : champ.split(u'\v')) {
        suite.push_back(texte.toStdString());
    }
    return champ.isEmpty()     ? ValeurPropriete(true)
           : suite.size() == 1 ? ValeurPropriete(suite[0])
                               : ValeurPropriete(suite);
}

ValeurPropriete relireValeur(QXmlStreamReader& xml) {
    if (xml.name() == QLatin1String("array")) {
        std::vector<std::string> textes;
        while (xml.readNextStartElement()) {
            textes.push_back(xml.readElementText().toStdString());
        }
        return textes;
    }
    if (xml.name() == QLatin1String("string")) {
        return xml.readElementText().toStdString();
    }
    const bool vrai = xml.name() == QLatin1String("true");
    xml.skipCurrentElement();
    return vrai;
}

bool admis(QChar c) {
    return c >= u' ' ? c < QChar(0xFFFE) : c >= u'\t' && c <= u'\r'; // deux sont nos séparateurs
}

} // namespace

void essai::eprouver(std::string_view octets) {
    const QString texte = QString::fromUtf8(octets.data(), static_cast<qsizetype>(octets.size()));
    DictionnairePropriete ecrit;
    QStringList champs = texte.split(u'\f');
    while (champs.size() > 1) {
        const std::string cle = champs.takeFirst().remove(u'\v').toStdString();
        ecrit.emplace_back(cle, valeur(champs.takeFirst()));
    }
    const plateforme::ListeSerialisee liste = plateforme::serialiserListe(ecrit);
    const qsizetype seule = champs.isEmpty() ? 0 : champs[0].size(); // une clé sans valeur
    exiger(liste.octets.has_value() == std::all_of(texte.begin(), texte.end() - seule, admis),
           "seul ce que XML admet s'écrit");
    exiger(liste.octets.has_value() == liste.erreur.empty(), "un échec se dit");
    if (!liste.octets) {
        return;
    }
    DictionnairePropriete relu;
    QXmlStreamReader xml(QByteArray::fromStdString(*liste.octets));
    exiger(xml.readNextStartElement() && xml.name() == QLatin1String("plist") &&
               xml.readNextStartElement() && xml.name() == QLatin1String("dict"),
           "c'est une liste de propriétés");
    while (xml.readNextStartElement()) {
        const std::string cle = xml.readElementText().toStdString();
        exiger(xml.readNextStartElement(), "chaque clé a sa valeur");
        relu.emplace_back(cle, relireValeur(xml));
    }
    exiger(!xml.hasError() && relu == ecrit, "ce qui est relu est ce qui a été écrit");
}
