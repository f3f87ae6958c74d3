// Le paquet installé dans /Applications du Mac simulé, et son Info.plist.
#include "plateforme/paquet.hpp"

#include "plateforme/fichiers.hpp"
#include "plateforme/identite.hpp"

#include <QtCore/QXmlStreamReader>

namespace plateforme {
namespace {

constexpr std::size_t kLimiteInfo = 1024 * 1024;

std::string contenu(const std::string& suite) {
    return cheminPaquet() + "/Contents/" + suite;
}

std::optional<std::string> siPresent(std::string chemin) {
    if (existe(chemin)) {
        return chemin;
    }
    return std::nullopt;
}

ValeurInfo lireValeur(QXmlStreamReader& xml) {
    const QString genre = xml.name().toString();
    if (genre == QLatin1String("true") || genre == QLatin1String("false")) {
        return {ValeurInfo::Genre::autre, genre == QLatin1String("true") ? "1" : "0"};
    }
    const QString texte = xml.readElementText(QXmlStreamReader::IncludeChildElements);
    return {genre == QLatin1String("string") ? ValeurInfo::Genre::texte : ValeurInfo::Genre::autre,
            texte.toStdString()};
}

} // namespace

std::string cheminPaquet() {
    return std::string("/Applications/") + kNomApplication + ".app";
}

std::optional<std::string> cheminRessource(const std::string& nom, const std::string& extension) {
    return siPresent(contenu("Resources/" + nom + "." + extension));
}

std::optional<std::string> cheminFrameworksPrives() {
    return siPresent(contenu("Frameworks"));
}

ValeurInfo valeurInfo(const std::string& cle) {
    const std::string liste = lireFichier(contenu("Info.plist"), kLimiteInfo).value_or("");
    QXmlStreamReader xml(QByteArray::fromStdString(liste));
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement &&
            xml.name() == QLatin1String("key") && xml.readElementText().toStdString() == cle &&
            xml.readNextStartElement()) {
            return lireValeur(xml);
        }
    }
    return {};
}

} // namespace plateforme
