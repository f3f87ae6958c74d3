// Un Mac simulé par essai, dans un dossier temporaire au nom plein d'espaces et d'accents.
//
// Le programme ne lit sa racine qu'une fois : un Mac par processus, donc par essai, ce que CTest
// assure en lançant chaque cas à part.
#pragma once

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <thread>

namespace essai {

// Tout le contenu d'un fichier ; vide quand il ne se lit pas.
inline std::string contenu(const std::filesystem::path& fichier) {
    std::ifstream flux(fichier, std::ios::binary);
    std::ostringstream octets;
    octets << flux.rdbuf();
    return octets.str();
}

// Une vraie réponse d'un outil, relevée une fois pour le Mac simulé et pour les essais.
inline std::string forme(const std::string& nom) {
    return contenu(FORMES + nom);
}

// Nombre d'éléments d'un dossier.
inline std::ptrdiff_t elements(const std::filesystem::path& dossier) {
    const std::filesystem::directory_iterator lu(dossier);
    return std::distance(begin(lu), end(lu));
}

class Mac {
public:
    const std::string bibliotheque =
        "/Applications/Assistant Lumivia.app/Contents/Frameworks/libftd2xx.dylib";

    explicit Mac(const std::string& scenario = "pret") {
        std::string modele = std::filesystem::temp_directory_path() / "un mac été-XXXXXX";
        dossier_ = ::mkdtemp(modele.data());
        racine_ = dossier_ / "racine";
        const std::string commande = "'" CREER_MAC "' --utilisateur 'Zoé du son' --scenario " +
                                     scenario + " '" + racine_.string() + "' >/dev/null";
        EXPECT_EQ(std::system(commande.c_str()), 0) << scenario << " ne se crée pas";
        ::setenv("LUMIVIA_MAC", racine_.c_str(), 1);
    }

    Mac(const Mac&) = delete;
    Mac& operator=(const Mac&) = delete;

    ~Mac() {
        std::error_code reste; // un reste dans le dossier temporaire n'invalide pas l'essai
        std::filesystem::permissions(dossier_, std::filesystem::perms::owner_all, reste);
        std::filesystem::remove_all(dossier_, reste);
    }

    // Chemin de Mac du dossier personnel, et chemin réel d'un chemin de Mac.
    const std::string& maison() const { return maison_; }

    std::filesystem::path reel(const std::string& cheminMac) const {
        return racine_.string() + cheminMac;
    }

    std::string lire(const std::string& cheminMac) const { return contenu(reel(cheminMac)); }

    std::ptrdiff_t elements(const std::string& cheminMac) const {
        return essai::elements(reel(cheminMac));
    }

    void poser(const std::string& cheminMac, const std::string& octets) const {
        std::filesystem::create_directories(reel(cheminMac).parent_path());
        std::ofstream(reel(cheminMac), std::ios::binary) << octets;
        ASSERT_EQ(lire(cheminMac), octets);
    }

    void poserEtat(const std::string& fait, const std::string& octets) const {
        poser("/etat/" + fait, octets);
    }

    // Remplace un outil du Mac par ce script.
    void poserOutil(const std::string& cheminMac, const std::string& script) const {
        poser(cheminMac, "#!/bin/sh\n" + script + "\n");
        std::filesystem::permissions(reel(cheminMac), std::filesystem::perms::owner_all);
    }

    // Met cette bibliothèque D2XX dans le paquet de l'assistant.
    void poserBibliotheque(const std::string& fichier) const {
        poser(bibliotheque, contenu(fichier));
    }

    void poserVariante(const std::string& nom) const {
        poserBibliotheque(VARIANTES + nom + "/libftd2xx.dylib");
    }

    void retirer(const std::string& cheminMac) const {
        std::filesystem::remove_all(reel(cheminMac));
    }

    bool existe(const std::string& cheminMac) const {
        return std::filesystem::exists(reel(cheminMac));
    }

private:
    std::filesystem::path dossier_;
    std::filesystem::path racine_;
    std::string maison_ = "/Users/Zoé du son";
};

// Vrai dès que le prédicat l'est, faux après une demi-minute au moins. La boucle de Qt tourne par
// `entretemps`.
inline bool attendre(
    const std::function<bool()>& predicat, const std::function<void()>& entretemps = [] {}) {
    for (int essai = 0; essai < 15000; ++essai) {
        if (predicat()) {
            return true;
        }
        entretemps();
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return false;
}

} // namespace essai
