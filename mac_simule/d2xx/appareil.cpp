#include "mac_simule/d2xx/appareil.hpp"

#include "mac_simule/faits/faits.hpp"

#include <algorithm>
#include <cstdlib>
#include <fstream>

namespace d2xx {

namespace {

// Les puces que la bibliothèque de FTDI reconnaît d'elle-même.
constexpr std::uint32_t kFabricantFtdi = 0x0403;
constexpr std::array<std::uint32_t, 5> kProduitsFtdi{0x6001, 0x6010, 0x6011, 0x6014, 0x6015};

// Les fichiers de etat/usb qui décrivent une puce FTDI, dans l'ordre de leurs noms.
std::vector<std::string> emetteursBranches(const faits::Mac& mac) {
    std::vector<std::string> emetteurs;
    for (const std::string& nom : mac.noms("usb")) {
        const faits::Peripherique lu = faits::lirePeripherique(mac.texte("usb/" + nom));
        if (lu.fabricant == kFabricantFtdi &&
            std::ranges::find(kProduitsFtdi, lu.produit) != kProduitsFtdi.end()) {
            emetteurs.push_back(mac.chemin("usb/" + nom));
        }
    }
    return emetteurs;
}

} // namespace

Appareil& Appareil::unique() {
    static Appareil* const appareil = new Appareil;
    return *appareil;
}

Statut Appareil::ouvrir(std::int32_t rang, FT_HANDLE& poignee) {
    const std::scoped_lock garde(verrou_);
    const faits::Mac& mac = faits::Mac::duProcessus();
    const std::vector<std::string> emetteurs = emetteursBranches(mac);
    if (rang < 0 || static_cast<std::size_t>(rang) >= emetteurs.size()) {
        return introuvable;
    }
    if (ouverture_ && ouverture_->debranchee()) {
        ouverture_.reset();
    }
    if (ouverture_ || mac.present("emetteur_occupe")) {
        return nonOuvert;
    }
    std::optional<Depot> depot = Depot::prendre(mac.racine());
    if (!depot) {
        return nonOuvert;
    }
    const bool realiste = mac.lire("puce_dmx") == "realiste";
    ouverture_ = std::make_unique<Ouverture>(
        emetteurs[static_cast<std::size_t>(rang)],
        realiste ? Puce::Modele::realiste : Puce::Modele::immediate, std::move(*depot));
    poignee = &poignees_[ouvertures_++ % poignees_.size()];
    poignee_ = poignee;
    return reussi;
}

Statut Appareil::fermer(const void* poignee) {
    const std::scoped_lock garde(verrou_);
    if (!connait(poignee)) {
        return poigneeInconnue;
    }
    ouverture_.reset();
    return reussi;
}

FT_STATUS noterAppel(const std::string& appel, FT_STATUS statut) {
    const char* fichier = std::getenv("LUMIVIA_APPELS_D2XX");
    if (fichier != nullptr) {
        // Une ligne perdue se verra dans l'essai qui la cherche.
        std::ofstream(fichier, std::ios::app)
            << (appel + " : " + std::to_string(statut) + "\n") << std::flush;
    }
    return statut;
}

} // namespace d2xx
