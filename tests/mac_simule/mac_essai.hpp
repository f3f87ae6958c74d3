// Un Mac simulé pour un essai, dans un dossier temporaire au nom plein d'espaces et d'accents.
#pragma once

#include "mac_simule/racine/etat.hpp"

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <thread>

struct Fini {
    std::string sortie; // les deux flux
    int code;
};

inline std::string cite(const std::string& mot) {
    return "'" + mot + "'";
}

inline Fini lancer(const std::string& commande) {
    Fini fini{};
    FILE* flux = popen(("{ " + commande + "\n} 2>&1 </dev/null").c_str(), "r");
    std::array<char, 4096> tampon{};
    while (const auto lu = std::fread(tampon.data(), 1, tampon.size(), flux)) {
        fini.sortie.append(tampon.data(), lu);
    }
    const int etat = pclose(flux);
    fini.code = WIFEXITED(etat) ? WEXITSTATUS(etat) : -WTERMSIG(etat);
    return fini;
}

inline bool attendre(const std::function<bool()>& predicat, int secondes = 30) {
    const auto limite = std::chrono::steady_clock::now() + std::chrono::seconds(secondes);
    while (!predicat()) {
        if (std::chrono::steady_clock::now() > limite) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return true;
}

inline std::string forme(const std::string& nom) {
    return mac_simule::lireFichier(FORMES + nom);
}

class DossierEssai {
public:
    DossierEssai() {
        std::string modele = "/tmp/essai mac été-XXXXXX";
        chemin_ = mkdtemp(modele.data());
    }

    ~DossierEssai() {
        std::error_code ignoree; // un reste sous /tmp n'invalide pas l'essai
        std::filesystem::remove_all(chemin_, ignoree);
    }

    DossierEssai(const DossierEssai&) = delete;
    DossierEssai& operator=(const DossierEssai&) = delete;

    const std::filesystem::path& chemin() const { return chemin_; }

private:
    std::filesystem::path chemin_;
};

class MacEssai {
public:
    explicit MacEssai(const std::string& scenario, const std::string& utilisateur = "Régie d été")
        : racine_(dossier_.chemin() / "le mac"), utilisateur_(utilisateur) {
        const Fini cree = lancer(cite(CREER_MAC) + " --scenario " + scenario + " --utilisateur " +
                                 cite(utilisateur) + " " + cite(racine_));
        EXPECT_EQ(cree.code, 0) << cree.sortie;
    }

    const std::filesystem::path& racine() const { return racine_; }

    std::filesystem::path maison() const { return racine_ / "Users" / utilisateur_; }

    Fini outil(const std::string& commande) const {
        const auto fin = std::min(commande.find(' '), commande.size());
        return lancer(cite(racine_.string() + commande.substr(0, fin)) + commande.substr(fin));
    }

    std::string fait(const std::string& nom) const {
        return mac_simule::lireFichier(racine_ / "etat" / nom);
    }

    void poser(const std::string& nom, const std::string& contenu) const {
        ASSERT_TRUE(mac_simule::ecrireFichier(racine_ / "etat" / nom, contenu));
    }

    bool existe(const std::string& chemin) const {
        return std::filesystem::exists(racine_.string() + chemin);
    }

    // Vrai quand le dossier courant d'un processus est dans la racine.
    bool habite() const {
        std::error_code partis; // un processus peut finir pendant la lecture
        for (const auto& entree : std::filesystem::directory_iterator("/proc", partis)) {
            const auto ou = std::filesystem::read_symlink(entree.path() / "cwd", partis).string();
            if (ou.rfind(racine_.string(), 0) == 0) {
                return true;
            }
        }
        return false;
    }

private:
    DossierEssai dossier_;
    std::filesystem::path racine_;
    std::string utilisateur_;
};
