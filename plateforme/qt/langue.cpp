#include "plateforme/langue.hpp"

#include <QtCore/QCollator>

#include <ctime>

namespace plateforme {

bool seRangeAvant(const std::string& a, const std::string& b) {
    QCollator ordre{QLocale::system()};
    ordre.setCaseSensitivity(Qt::CaseInsensitive);
    return ordre.compare(QString::fromStdString(a), QString::fromStdString(b)) < 0;
}

std::string horodatageLocal() {
    const std::time_t maintenant = std::time(nullptr);
    std::tm date{};
    if (::localtime_r(&maintenant, &date) == nullptr) {
        return {};
    }
    char texte[sizeof "2024-05-17 14:03:09"];
    return {texte, std::strftime(texte, sizeof texte, "%Y-%m-%d %H:%M:%S", &date)};
}

} // namespace plateforme
