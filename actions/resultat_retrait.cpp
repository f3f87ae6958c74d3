#include "actions/resultat_retrait.hpp"

#include "actions/actions.hpp"
#include "diagnostic/diagnostic.hpp"
#include "plateforme/fichiers.hpp"
#include "support/systeme.hpp"
#include "support/utf8.hpp"

namespace {

// Un résultat tient en quelques lignes ; plus gros que cela, le fichier n'est pas le nôtre.
constexpr std::size_t kLimiteResultat = 64UL * 1024 * 1024;

constexpr std::int64_t kPremiereVersionQuiConfirme = 13;

} // namespace

bool retraitReussi(std::string_view sortie, bool reconstructionDemandee,
                   std::int64_t versionMajeure, bool d2xxHelperEncoreLa) {
    const auto affiche = [sortie](std::string_view phrase) {
        return sortie.find(phrase) != std::string_view::npos;
    };
    const bool confirmee = affiche("A system reboot is required") || affiche("No changes");
    if (!affiche("sauvegarde :")) {
        return false;
    }
    if (reconstructionDemandee && !confirmee && versionMajeure >= kPremiereVersionQuiConfirme) {
        return false;
    }
    return !d2xxHelperEncoreLa;
}

std::optional<Actions::ResultatRetrait> Actions::resultatRetrait() {
    const auto sortie = plateforme::lireFichier(fichierResultat(), kLimiteResultat);
    if (!sortie || !estUtf8Valide(*sortie)) {
        return std::nullopt;
    }
    const bool ok =
        retraitReussi(*sortie, reconstructionDemandee, plateforme::versionSysteme().majorVersion,
                      Systeme::existe(Diagnostic::cheminD2xxHelper));
    return ResultatRetrait{*sortie, ok};
}
