#include "mac_simule/racine/integrite.hpp"

#include "mac_simule/racine/etat.hpp"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace mac_simule {

namespace fs = std::filesystem;

namespace {

constexpr std::array kFaits{"etat/version", "etat/utilisateur"};

constexpr std::array kOutils{
    "usr/bin/open",
    "usr/bin/osascript",
    "usr/bin/sudo",
    "usr/bin/systemextensionsctl",
    "usr/bin/tee",
    "usr/sbin/kextcache",
    "usr/sbin/kextstat",
    "usr/sbin/sysctl",
    "System/Applications/Utilities/Terminal.app/Contents/MacOS/Terminal",
};

} // namespace

std::string defautDuMac(const fs::path& racine) {
    const std::string nom = "« " + racine.string() + " » ";
    std::error_code absent; // ce qui ne se voit pas manque
    if (!fs::is_directory(racine / "etat", absent)) {
        return nom + "n'est pas un Mac simulé.";
    }
    std::vector<std::string> elements(kFaits.begin(), kFaits.end());
    elements.insert(elements.end(), kDossiersDuMac.begin(), kDossiersDuMac.end());
    elements.insert(elements.end(), kOutils.begin(), kOutils.end());
    elements.push_back("Users/" + lireFait(racine, "utilisateur") + "/Library");
    if (std::atoi(lireFait(racine, "version").c_str()) >= 11) {
        elements.emplace_back("usr/bin/kmutil");
    }
    const auto manque =
        std::find_if(elements.begin(), elements.end(), [&](const std::string& element) {
            return !fs::exists(racine / element, absent);
        });
    if (manque == elements.end()) {
        return {};
    }
    return "Le Mac simulé " + nom + "n'est pas entier : il manque « " + *manque + " ».";
}

} // namespace mac_simule
