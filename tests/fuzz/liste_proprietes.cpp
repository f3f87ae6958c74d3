// La liste de propriétés que l'on écrit, relue par un autre lecteur : rien ne s'y perd.
#include "plateforme/liste_proprietes.hpp"

#include "fuzz/entree.hpp"

#include <QtCore/QXmlStreamReader>

#include <algorithm>

namespace {

using plateforme::DictionnairePropriete;

// Chaque ligne est une clé, ou un texte, ou une suite de textes entre tabulations verticales.
DictionnairePropriete dictionnaire(const QStringList& lignes) {
    DictionnairePropriete lu;
    for (qsizetype i = 0; i + 1 < lignes.size(); i += 2) {
        const QStringList textes = lignes[i + 1].split(u'\v');
        std::vector<std::string> copies;
        std::transform(textes.begin(), textes.end(), std::back_inserter(copies),
                       [](const QString& texte) { return texte.toStdString(); });
        const bool seul = copies.size() == 1;
        lu.emplace_back(lignes[i].toStdString(), !seul ? plateforme::ValeurPropriete(copies)
                                                 : copies[0].empty()
                                                     ? plateforme::ValeurPropriete(i % 4 == 0)
                                                     : plateforme::ValeurPropriete(copies[0]));
    }
    return lu;
}

plateforme::ValeurPropriete relireValeur(QXmlStreamReader& xml) {
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

bool admisParXml(QChar c) {
    return c >= u' ' ? c < QChar(0xFFFE) : c == u'\t' || c == u'\n' || c == u'\r';
}

} // namespace

void essai::eprouver(std::string_view octets) {
    const QString texte = QString::fromUtf8(octets.data(), static_cast<qsizetype>(octets.size()));
    const DictionnairePropriete ecrit = dictionnaire(texte.split(u'\f'));
    const plateforme::ListeSerialisee liste = plateforme::serialiserListe(ecrit);
    QString tout;
    for (const auto& [cle, valeur] : ecrit) {
        tout += QString::fromStdString(cle);
        if (const auto* seul = std::get_if<std::string>(&valeur)) {
            tout += QString::fromStdString(*seul);
        } else if (const auto* suite = std::get_if<std::vector<std::string>>(&valeur)) {
            for (const std::string& un : *suite) {
                tout += QString::fromStdString(un);
            }
        }
    }
    exiger(liste.octets.has_value() == std::all_of(tout.begin(), tout.end(), admisParXml),
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
