#include "plateforme/liste_proprietes.hpp"

#include <QtCore/QXmlStreamWriter>

#include <algorithm>

namespace plateforme {
namespace {

// XML 1.0 n'écrit aucun caractère de commande hors tabulation et fins de ligne.
bool estEcrivable(const std::string& texte) {
    return std::all_of(texte.begin(), texte.end(), [](char c) {
        return static_cast<unsigned char>(c) >= 0x20 || c == '\t' || c == '\n' || c == '\r';
    });
}

class Redaction {
public:
    explicit Redaction(QByteArray& octets) : xml_(&octets) {
        xml_.setAutoFormatting(true);
        xml_.setAutoFormattingIndent(-1); // une tabulation, comme le système
    }

    bool ecrire(const DictionnairePropriete& dictionnaire) {
        xml_.writeStartDocument(QStringLiteral("1.0"));
        xml_.writeDTD(QStringLiteral("<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                     "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">"));
        xml_.writeStartElement(QStringLiteral("plist"));
        xml_.writeAttribute(QStringLiteral("version"), QStringLiteral("1.0"));
        xml_.writeStartElement(QStringLiteral("dict"));
        for (const auto& [cle, valeur] : dictionnaire) {
            element("key", cle);
            std::visit([this](const auto& v) { ecrireValeur(v); }, valeur);
        }
        xml_.writeEndDocument();
        return complete_ && !xml_.hasError();
    }

private:
    void element(const char* nom, const std::string& texte) {
        complete_ = complete_ && estEcrivable(texte);
        xml_.writeStartElement(QString::fromLatin1(nom));
        const QStringList parties = QString::fromStdString(texte).split(u'\r');
        xml_.writeCharacters(parties.front());
        for (const QString& suite : parties.mid(1)) {
            // Tel quel, un retour chariot serait relu comme une fin de ligne.
            xml_.writeEntityReference(QStringLiteral("#13"));
            xml_.writeCharacters(suite);
        }
        xml_.writeEndElement();
    }

    void ecrireValeur(bool vrai) {
        xml_.writeEmptyElement(vrai ? QStringLiteral("true") : QStringLiteral("false"));
    }

    void ecrireValeur(const std::string& texte) { element("string", texte); }

    void ecrireValeur(const std::vector<std::string>& textes) {
        xml_.writeStartElement(QStringLiteral("array"));
        for (const std::string& texte : textes) {
            element("string", texte);
        }
        xml_.writeEndElement();
    }

    QXmlStreamWriter xml_;
    bool complete_ = true;
};

} // namespace

ListeSerialisee serialiserListe(const DictionnairePropriete& dictionnaire) {
    QByteArray octets;
    if (!Redaction(octets).ecrire(dictionnaire)) {
        return {std::nullopt, "Un caractère de la liste de propriétés ne s'écrit pas en XML."};
    }
    return {octets.toStdString(), {}};
}

} // namespace plateforme
