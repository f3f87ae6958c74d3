#include "plateforme/qt/icone.hpp"

#include "plateforme/fichiers.hpp"
#include "plateforme/paquet.hpp"

#include <QtCore/QtEndian>

#include <string_view>

namespace plateforme {
namespace {

constexpr std::size_t kEntete = 8; // le genre, puis la longueur, de l'entrée entière
constexpr std::size_t kLimite = 1024 * 1024;

// Les entrées de 32, 64 et 128 points de côté : un bureau n'en montre pas de plus grandes.
bool convient(std::string_view genre) {
    return genre == "ic11" || genre == "ic12" || genre == "ic07";
}

} // namespace

// Qt, sans greffon de plus, ne lit pas ce format ; les images qu'il réunit sont des PNG.
QIcon iconeDuPaquet() {
    QIcon icone;
    const std::string fichier =
        lireFichier(cheminRessource("AssistantLumivia", "icns").value_or(""), kLimite).value_or("");
    std::string_view reste = std::string_view(fichier).substr(std::min(kEntete, fichier.size()));
    while (reste.size() > kEntete) {
        const std::size_t longueur = qFromBigEndian<quint32>(reste.data() + 4);
        if (longueur < kEntete || longueur > reste.size()) {
            break;
        }
        if (convient(reste.substr(0, 4))) {
            const std::string_view png = reste.substr(kEntete, longueur - kEntete);
            icone.addPixmap(QPixmap::fromImage(QImage::fromData(
                QByteArrayView(png.data(), static_cast<qsizetype>(png.size())), "PNG")));
        }
        reste.remove_prefix(longueur);
    }
    return icone;
}

} // namespace plateforme
