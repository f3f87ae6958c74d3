// Le résultat du retrait, lu du vrai fichier d'un Mac simulé réduit à deux faits.
#include "actions/actions.hpp"
#include "fuzz/entree.hpp"

#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

// Garde le fichier du résultat le temps du programme.
struct Mac {
    fs::path racine = fs::temp_directory_path() / ("fuzz-" + std::to_string(::getpid()));
    fs::path resultat;

    Mac() {
        fs::create_directories(racine / "etat");
        std::ofstream(racine / "etat/utilisateur") << "regie";
        ::setenv("LUMIVIA_MAC", racine.c_str(), 1);
        resultat = racine.string() + Actions::fichierResultat();
        fs::create_directories(resultat.parent_path());
    }

    ~Mac() { fs::remove_all(racine); }
};

} // namespace

// Le premier octet choisit le Mac, les suivants sont le fichier.
void essai::eprouver(std::string_view octets) {
    static const Mac mac;
    const int choix = octets.empty() ? 0 : octets[0];
    const std::string texte(octets.substr(octets.empty() ? 0 : 1));
    const bool recent = (choix & 1) != 0;
    const bool encoreLa = (choix & 4) != 0;
    Actions::reconstructionDemandee = (choix & 2) != 0;
    std::ofstream(mac.racine / "etat/version") << (recent ? "13.0.0" : "12.7.6");
    std::ofstream(mac.resultat, std::ios::binary) << texte;
    fs::remove_all(mac.racine / "Library");
    if (encoreLa) {
        fs::create_directories(mac.racine / "Library/Extensions/D2xxHelper.kext");
    }
    const auto lu = Actions::resultatRetrait();
    exiger(lu.has_value() == valide(texte), "seul un texte valide est un résultat");
    if (lu) {
        const QByteArray sortie = QByteArray::fromStdString(lu->sortie);
        const bool confirme = !Actions::reconstructionDemandee || !recent ||
                              sortie.contains("A system reboot is required") ||
                              sortie.contains("No changes");
        exiger(lu->sortie == texte, "le résultat est rendu tel quel");
        exiger(lu->ok == (sortie.contains("sauvegarde :") && confirme && !encoreLa),
               "un retrait réussi est sauvegardé, confirmé et constaté");
    }
}
