#include "plateforme/liste_proprietes.hpp"

#include "plateforme/posix/texte_xml.hpp"

#include <QtCore/QXmlStreamWriter>

namespace plateforme {
namespace {

class Redaction {
public:
    explicit Redaction(QByteArray& octets) : xml_(&octets) {
        xml_.setAutoFormatting(true);
        xml_.setAutoFormattingIndent(-1); // une tabulation, comme le système
    }

    void ecrire(const DictionnairePropriete& dictionnaire) {
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
    }

private:
    void element(const char* nom, const std::string& texte) {
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
};

} // namespace

ListeSerialisee serialiserListe(const DictionnairePropriete& dictionnaire) {
    if (const auto refus = refusXML(dictionnaire)) {
        return *refus;
    }
    QByteArray octets;
    Redaction(octets).ecrire(dictionnaire);
    return {octets.toStdString(), {}};
}

} // namespace plateforme
