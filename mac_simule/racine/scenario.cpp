#include "mac_simule/racine/scenario.hpp"

#include <algorithm>
#include <array>
#include <set>

namespace mac_simule {

namespace {

using Texte = std::string_view;

constexpr Texte kBlancs = " \t";
constexpr Texte kChiffres = "0123456789";
constexpr Texte kChiffresHexa = "0123456789abcdefABCDEF";

Texte sansBlancs(Texte texte) {
    const auto debut = texte.find_first_not_of(kBlancs);
    if (debut == Texte::npos) {
        return {};
    }
    return texte.substr(debut, texte.find_last_not_of(kBlancs) - debut + 1);
}

// Sépare au premier des `separateurs` ; le second membre est vide quand il n'y en a pas.
std::pair<Texte, Texte> couper(Texte texte, Texte separateurs = kBlancs) {
    const auto fin = texte.find_first_of(separateurs);
    if (fin == Texte::npos) {
        return {texte, {}};
    }
    return {sansBlancs(texte.substr(0, fin)), sansBlancs(texte.substr(fin + 1))};
}

bool faitDe(Texte texte, Texte alphabet) {
    return !texte.empty() && texte.find_first_not_of(alphabet) == Texte::npos;
}

bool estUnMot(Texte texte) {
    return !texte.empty() && texte.find_first_of(kBlancs) == Texte::npos;
}

bool nombre(Texte texte) {
    return texte.size() <= 4 && faitDe(texte, kChiffres);
}

bool identifiantUsb(Texte texte) {
    return texte.size() == 6 && texte.substr(0, 2) == "0x" &&
           faitDe(texte.substr(2), kChiffresHexa);
}

bool version(Scenario& s, Texte valeur) {
    const auto [majeure, suite] = couper(valeur, ".");
    const auto [mineure, corrective] = couper(suite, ".");
    s.version = valeur;
    return estUnMot(valeur) && valeur.back() != '.' && nombre(majeure) && nombre(mineure) &&
           (corrective.empty() || nombre(corrective));
}

template <std::string Scenario::*membre>
bool mot(Scenario& s, Texte valeur) {
    s.*membre = valeur;
    return estUnMot(valeur);
}

template <std::string Scenario::*membre>
bool phrase(Scenario& s, Texte valeur) {
    s.*membre = valeur;
    return !valeur.empty();
}

template <bool Scenario::*membre>
bool presence(Scenario& s, Texte valeur) {
    s.*membre = true;
    return valeur.empty();
}

bool puce(Scenario& s, Texte valeur) {
    s.puce = valeur;
    return valeur == "apple" || valeur == "intel";
}

bool utilisateur(Scenario& s, Texte valeur) {
    s.utilisateur = valeur;
    return nomUtilisateurValide(valeur);
}

bool compte(Scenario& s, Texte valeur) {
    s.compte = valeur;
    return valeur == "administrateur" || valeur == "standard";
}

bool emetteur(Scenario& s, Texte valeur) {
    s.peripheriques.push_back({"0x0403", "0x6001", std::string(valeur), {}});
    return true;
}

bool emetteurNombre(Scenario& s, Texte valeur) {
    s.peripheriques.push_back({"0x0403", "0x6001", {}, std::string(valeur)});
    return valeur.size() <= 9 && faitDe(valeur, kChiffres);
}

bool peripherique(Scenario& s, Texte valeur) {
    const auto [fabricant, suite] = couper(valeur);
    const auto [produit, numero] = couper(suite);
    s.peripheriques.push_back(
        {std::string(fabricant), std::string(produit), std::string(numero), {}});
    return identifiantUsb(fabricant) && identifiantUsb(produit);
}

bool kext(Scenario& s, Texte valeur) {
    constexpr Texte suffixe = ".kext";
    s.kexts.emplace_back(valeur);
    return valeur.size() > suffixe.size() && valeur.front() != '.' &&
           valeur.find('/') == Texte::npos &&
           valeur.substr(valeur.size() - suffixe.size()) == suffixe;
}

bool charge(Scenario& s, Texte valeur) {
    const auto [identifiant, suite] = couper(valeur);
    const auto [numero, chemin] = couper(suite);
    s.chargees.push_back({std::string(identifiant), std::string(numero), std::string(chemin)});
    return !identifiant.empty() && !numero.empty() && !chemin.empty() && chemin.front() == '/';
}

bool extensionFtdi(Scenario& s, Texte valeur) {
    s.extensionFtdi = valeur;
    return valeur == "active" || valeur == "desactivee";
}

bool frappe(Scenario& s, Texte valeur) {
    s.frappe.emplace_back(valeur);
    return true;
}

bool kmutil(Scenario& s, Texte valeur) {
    s.kmutil = valeur;
    return valeur == "confirme" || valeur == "muet" || valeur == "refuse";
}

bool puceDmx(Scenario& s, Texte valeur) {
    s.puceDmx = valeur;
    return valeur == "immediat" || valeur == "realiste";
}

bool vitesseHorloge(Scenario& s, Texte valeur) {
    s.vitesseHorloge = valeur;
    return nombre(valeur) && valeur.front() != '0';
}

bool geste(Scenario& s, Texte valeur) {
    const auto [page, bouton] = couper(valeur, "|");
    s.gestes.push_back({std::string(page), std::string(bouton)});
    return !page.empty() && !bouton.empty();
}

struct Cle {
    Texte nom;
    bool (*lire)(Scenario&, Texte);
    Texte attendu;
    bool repetable = false;
};

constexpr std::array kCles{
    Cle{"version", version, "un numéro de version comme 14.5.0"},
    Cle{"puce", puce, "apple ou intel"},
    Cle{"modele", mot<&Scenario::modele>, "un modèle comme Mac14,2"},
    Cle{"utilisateur", utilisateur, "un nom sans barre oblique ni apostrophe"},
    Cle{"compte", compte, "administrateur ou standard"},
    Cle{"emetteur", emetteur, "un numéro de série, ou rien", true},
    Cle{"emetteur_nombre", emetteurNombre, "un nombre", true},
    Cle{"peripherique", peripherique, "un fabricant et un produit comme 0x0403 0x6015", true},
    Cle{"kext", kext, "un nom de dossier qui finit par .kext", true},
    Cle{"charge", charge, "un identifiant, une version et un chemin absolu", true},
    Cle{"extension_ftdi", extensionFtdi, "active ou desactivee"},
    Cle{"mot_de_passe", phrase<&Scenario::motDePasse>, "un mot de passe"},
    Cle{"frappe", frappe, "une ligne tapée", true},
    Cle{"kmutil", kmutil, "confirme, muet ou refuse"},
    Cle{"puce_dmx", puceDmx, "immediat ou realiste"},
    Cle{"vitesse_horloge", vitesseHorloge, "un nombre de 1 à 9999"},
    Cle{"terminal_ferme", presence<&Scenario::terminalFerme>, "rien"},
    Cle{"emetteur_occupe", presence<&Scenario::emetteurOccupe>, "rien"},
    Cle{"bibliotheque_absente", presence<&Scenario::bibliothequeAbsente>, "rien"},
    Cle{"relance_impossible", presence<&Scenario::relanceImpossible>, "rien"},
    Cle{"geste", geste, "un titre de page, une barre verticale et un titre de bouton", true},
    Cle{"fin", phrase<&Scenario::fin>, "un titre de page"},
};

// La phrase de ce qui ne va pas sur la ligne ; vide quand elle est lue.
std::string lireLigne(Scenario& scenario, std::set<Texte>& vues, Texte ligne) {
    if (std::any_of(ligne.begin(), ligne.end(),
                    [](char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\t'; })) {
        return "un caractère de commande n'a rien à y faire";
    }
    const auto [nom, valeur] = couper(sansBlancs(ligne));
    const auto* cle =
        std::find_if(kCles.begin(), kCles.end(), [&](const Cle& c) { return c.nom == nom; });
    if (cle == kCles.end()) {
        return "la clé « " + std::string(nom) + " » est inconnue";
    }
    if (!vues.insert(cle->nom).second && !cle->repetable) {
        return "la clé « " + std::string(nom) + " » est déjà donnée";
    }
    if (!cle->lire(scenario, valeur)) {
        return "« " + std::string(nom) + " » attend " + std::string(cle->attendu);
    }
    return {};
}

} // namespace

int Scenario::versionMajeure() const {
    return std::stoi(version);
}

std::variant<Scenario, std::string> lireScenario(std::string_view texte) {
    Scenario scenario;
    std::set<Texte> vues;
    for (int numero = 1; !texte.empty(); ++numero) {
        const auto fin = std::min(texte.find('\n'), texte.size());
        const Texte ligne = texte.substr(0, fin);
        texte.remove_prefix(std::min(fin + 1, texte.size()));
        if (numero == 1 && !ligne.empty() && ligne.front() == '#') {
            scenario.description = sansBlancs(ligne.substr(1));
        }
        if (sansBlancs(ligne).empty() || sansBlancs(ligne).front() == '#') {
            continue;
        }
        if (const auto erreur = lireLigne(scenario, vues, ligne); !erreur.empty()) {
            return "ligne " + std::to_string(numero) + " : " + erreur;
        }
    }
    if (scenario.frappe.empty()) {
        scenario.frappe.push_back(scenario.motDePasse);
    }
    return scenario;
}

bool nomUtilisateurValide(std::string_view nom) {
    return !nom.empty() && nom.front() != '.' && nom.size() <= 200 &&
           std::none_of(nom.begin(), nom.end(), [](char c) {
               return c == '/' || c == '\'' || static_cast<unsigned char>(c) < 0x20;
           });
}

} // namespace mac_simule
