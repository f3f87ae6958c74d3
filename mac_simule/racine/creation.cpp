#include "mac_simule/racine/creation.hpp"

#include "mac_simule/racine/etat.hpp"
#include "mac_simule/racine/integrite.hpp"

#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace mac_simule {

namespace fs = std::filesystem;

namespace {

constexpr const char* kTerminal = "System/Applications/Utilities/Terminal.app/Contents";

void ecrire(const fs::path& chemin, std::string_view contenu) {
    if (!ecrireFichier(chemin, contenu)) {
        throw fs::filesystem_error("écriture", chemin,
                                   std::error_code(errno, std::generic_category()));
    }
}

std::string
listeProprietes(std::initializer_list<std::pair<std::string_view, std::string_view>> proprietes) {
    std::string texte =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n";
    for (const auto& [cle, valeur] : proprietes) {
        texte.append("\t<key>").append(cle).append("</key>\n");
        texte.append("\t<string>").append(valeur).append("</string>\n");
    }
    return texte + "</dict>\n</plist>\n";
}

// Une extension installée : ce que le Finder et les outils en voient, sans le code du noyau.
void installerKext(const fs::path& racine, const std::string& nom, const Scenario& scenario) {
    const fs::path chemin = fs::path("/Library/Extensions") / nom;
    const std::string programme = chemin.stem();
    std::string identifiant = "com.FTDI.driver." + programme;
    std::string version = "2.4.4";
    for (const auto& chargee : scenario.chargees) {
        if (chargee.chemin == chemin) {
            identifiant = chargee.identifiant;
            version = chargee.version;
        }
    }
    const fs::path contenu = racine / chemin.relative_path() / "Contents";
    fs::create_directories(contenu);
    ecrire(contenu / "Info.plist", listeProprietes({{"CFBundleExecutable", programme},
                                                    {"CFBundleIdentifier", identifiant},
                                                    {"CFBundlePackageType", "KEXT"},
                                                    {"CFBundleVersion", version}}));
}

void brancher(const fs::path& usb, const Scenario& scenario) {
    int numero = 0;
    for (const auto& peripherique : scenario.peripheriques) {
        std::string texte = "fabricant " + peripherique.fabricant + "\n";
        texte += "produit " + peripherique.produit + "\n";
        if (!peripherique.serie.empty()) {
            texte += "serie " + peripherique.serie + "\n";
        }
        if (!peripherique.serieNombre.empty()) {
            texte += "serie_nombre " + peripherique.serieNombre + "\n";
        }
        const bool emetteur =
            peripherique.fabricant == "0x0403" && peripherique.produit == "0x6001";
        ecrire(usb / ((emetteur ? "emetteur-" : "peripherique-") + std::to_string(++numero)),
               texte);
    }
}

std::string ligneExtensionFtdi(const std::string& etat) {
    if (etat.empty()) {
        return {};
    }
    const bool active = etat == "active";
    return std::string(active ? "*\t*" : "\t*") +
           "\t658CPPCMJJ\tcom.ftdi.vcp.dext (1.6/0)\tNullDriver\t" +
           (active ? "[activated enabled]\n" : "[activated disabled]\n");
}

void ecrireFaits(const fs::path& etat, const Scenario& s) {
    brancher(etat / "usb", s);
    const std::pair<const char*, std::string> valeurs[] = {
        {"version", s.version},
        {"puce", s.puce},
        {"modele", s.modele},
        {"utilisateur", s.utilisateur},
        {"compte", s.compte},
        {"demarrage", texteDemarrage(std::chrono::system_clock::now())},
        {"mot_de_passe", s.motDePasse},
        {"kmutil", s.kmutil},
        {"puce_dmx", s.puceDmx},
        {"vitesse_horloge", s.vitesseHorloge},
        {"fin", s.fin},
    };
    for (const auto& [nom, valeur] : valeurs) {
        ecrire(etat / nom, valeur + "\n");
    }
    std::string chargees;
    for (const auto& kext : s.chargees) {
        chargees += kext.identifiant + "\t" + kext.version + "\t" + kext.chemin + "\n";
    }
    std::string frappe;
    for (const auto& ligne : s.frappe) {
        frappe += ligne + "\n";
    }
    std::string gestes;
    for (const auto& geste : s.gestes) {
        gestes += geste.page + "\t" + geste.bouton + "\n";
    }
    ecrire(etat / "kexts_charges", chargees);
    ecrire(etat / "frappe", frappe);
    ecrire(etat / "gestes", gestes);
    ecrire(etat / "extensions_systeme", ligneExtensionFtdi(s.extensionFtdi));
    for (const auto& [nom, present] : {std::pair{"terminal_ferme", s.terminalFerme},
                                       {"emetteur_occupe", s.emetteurOccupe},
                                       {"bibliotheque_absente", s.bibliothequeAbsente}}) {
        if (present) {
            ecrire(etat / nom, "");
        }
    }
}

void creerDossiers(const fs::path& racine, const Scenario& s) {
    const fs::path bibliotheque = racine / "Users" / s.utilisateur / "Library";
    for (const char* dossier : kDossiersDuMac) {
        fs::create_directories(racine / dossier);
    }
    for (const char* dossier : {"Application Support", "Logs", "Preferences"}) {
        fs::create_directories(bibliotheque / dossier);
    }
    fs::create_directories(racine / kTerminal / "MacOS");
    ecrire(racine / kTerminal / "Info.plist",
           listeProprietes({{"CFBundleExecutable", "Terminal"},
                            {"CFBundleIdentifier", "com.apple.Terminal"},
                            {"CFBundlePackageType", "APPL"}}));
    if (s.relanceImpossible) {
        ecrire(bibliotheque / "LaunchAgents", "");
    }
}

void copierOutils(const fs::path& outils, const fs::path& racine, const Scenario& s) {
    fs::copy(outils, racine, fs::copy_options::recursive);
    if (s.versionMajeure() < 11) {
        fs::remove(racine / "usr/bin/kmutil"); // venu avec macOS 11
    }
}

std::string raison(const std::error_code& erreur) {
    switch (erreur.value()) {
    case EACCES:
    case EPERM:
        return "l'accès est refusé";
    case EROFS:
        return "le disque est en lecture seule";
    case ENOSPC:
        return "le disque est plein";
    case ENOENT:
        return "le dossier ou le fichier qui doit le précéder n'existe pas";
    case ENOTDIR:
        return "un fichier tient la place d'un dossier";
    default:
        return "erreur " + std::to_string(erreur.value()) + " du système";
    }
}

std::string refus(const fs::path& racine, const std::string& pourquoi) {
    return "Le Mac simulé ne peut pas être créé dans « " + racine.string() + " » : " + pourquoi +
           ".";
}

// Le chemin de la racine ne doit pas pouvoir se lire autrement dans un script ou un message.
bool cheminAcceptable(const fs::path& racine) {
    for (const char c : racine.string()) {
        if (c == '\'' || static_cast<unsigned char>(c) < 0x20) {
            return false;
        }
    }
    return racine.is_absolute() && racine.has_filename();
}

} // namespace

std::string creerMac(const Scenario& scenario, const fs::path& outils, const fs::path& racine) {
    if (!cheminAcceptable(racine)) {
        return refus(racine, "son nom a une apostrophe ou un caractère de commande");
    }
    std::error_code erreur;
    if (!fs::is_directory(outils / "usr", erreur)) {
        return refus(racine, "les outils ne sont pas dans « " + outils.string() + " »");
    }
    const bool existe = fs::exists(racine, erreur);
    if (existe && !fs::is_directory(racine, erreur)) {
        return refus(racine, "un fichier a déjà ce nom");
    }
    if (existe && !fs::is_empty(racine, erreur)) {
        return refus(racine, "ce dossier n'est pas vide");
    }
    std::string chantier = (racine.parent_path() / ".mac-XXXXXX").string();
    if (mkdtemp(chantier.data()) == nullptr) {
        return refus(racine, raison({errno, std::generic_category()}));
    }
    try {
        fs::permissions(chantier, fs::perms(0755));
        copierOutils(outils, chantier, scenario);
        creerDossiers(chantier, scenario);
        ecrireFaits(fs::path(chantier) / "etat", scenario);
        for (const auto& kext : scenario.kexts) {
            installerKext(chantier, kext, scenario);
        }
        fs::rename(chantier, racine);
        return {};
    } catch (const fs::filesystem_error& echec) {
        fs::remove_all(chantier, erreur); // ce qui resterait n'est pas le Mac demandé
        return refus(racine, raison(echec.code()));
    }
}

} // namespace mac_simule
