#include "app/logiciels.hpp"

#include "plateforme/langue.hpp"

#include <algorithm>
#include <array>

namespace {

struct Brute {
    const char* nom;
    const char* consigne;
};

constexpr std::array<Brute, 12> kBrute{{
    {"Chataigne", "Chataigne gère les interfaces « Enttec OpenDMX » (liste des protocoles de "
                  "Chataigne). Ajoutez un module DMX, puis choisissez le type d'interface Open DMX "
                  "(Enttec OpenDMX)."},
    {"FootLight", "FootLight est cité par Enttec parmi les logiciels Mac compatibles Open DMX USB. "
                  "Choisissez l'interface Open DMX / ENTTEC dans les réglages DMX de FootLight."},
    {"Lightning DmxControl",
     "Lightning DmxControl est cité par Enttec parmi les logiciels Mac compatibles Open "
     "DMX USB. Choisissez l'interface Open DMX / ENTTEC dans ses réglages DMX."},
    {"MadMapper",
     "L'Open DMX est géré depuis MadMapper 5.1 (versions plus anciennes : non). Branchez "
     "l'émetteur avant d'ouvrir MadMapper, puis choisissez l'interface dans les "
     "préférences, rubrique « DMX Output »."},
    {"Millumin",
     "Testé chez Voltaris (Millumin 5.14, Mac à puce Apple, sans Rosetta).\n  1.  Tapez "
     "⌘K pour ouvrir le panneau des appareils, onglet « DMX ».\n  2.  Cliquez sur la roue "
     "crantée, puis « Enable Special Open-DMX mode ».\n  3.  Dans la liste, l'émetteur "
     "apparaît comme « DMX device » (FT232R USB UART), mode « Send DMX signals ».\n  4.  "
     "Pour envoyer du DMX, créez une lumière (⌘L) et choisissez « DMX device » dans son "
     "champ « DMX channel ».\nMillumin occupe un écran en plein écran au démarrage : ⌘F "
     "pour en sortir."},
    {"QLC+", "Selon la documentation de QLC+ : aucun pilote n'est nécessaire sur Mac.\n  1.  "
             "Ouvrez l'onglet « Inputs/Outputs ».\n  2.  Cochez « Output » sur la ligne « DMX USB "
             "» de l'univers voulu.\n  3.  Si rien ne sort : cliquez sur le nom de l'appareil, "
             "puis sur l'icône de configuration en bas à droite, et forcez le type « Open TX »."},
    {"xLights",
     "Selon le manuel de xLights :\n  1.  Onglet « Setup » : cliquez sur « Add USB ».\n  "
     "2.  « Port » : choisissez le port de l'émetteur (usbserial…).\n  3.  « Protocol » : "
     "« OpenDMX », 512 canaux."},
    {"Lightkey",
     "Lightkey gère les interfaces « Open DMX USB » (citées par Enttec et par les notes "
     "de version de Lightkey). Choisissez l'interface ENTTEC Open DMX USB dans les "
     "réglages des sorties DMX de Lightkey."},
    {"SoundSwitch",
     "SoundSwitch cite « Enttec Open DMX USB » parmi les interfaces tierces compatibles. "
     "Choisissez cette interface dans les réglages DMX de SoundSwitch."},
    {"MyStrow", "MyStrow pilote directement les interfaces Open DMX (puce FTDI), en mode D2XX. "
                "Choisissez l'interface Open DMX / ENTTEC dans les réglages DMX de MyStrow."},
    {"DMXDesktop",
     "DMXDesktop détecte seul la plupart des interfaces. Si besoin, choisissez le pilote "
     "« Enttec USB Open »."},
    {"Autre logiciel",
     "Dans les réglages DMX de votre logiciel, choisissez l'interface « ENTTEC Open DMX "
     "USB », « Open DMX » ou « FTDI ». Le Mac n'a besoin d'aucun pilote supplémentaire : "
     "n'installez pas de pilote FTDI « VCP »."},
}};

constexpr const char* kAutre = "Autre logiciel";

} // namespace

std::vector<Logiciels::Fiche> Logiciels::liste() {
    std::vector<Fiche> fiches;
    for (const Brute& ligne : kBrute) {
        fiches.push_back({ligne.nom, ligne.consigne});
    }
    const auto autres = std::stable_partition(fiches.begin(), fiches.end(),
                                              [](const Fiche& f) { return f.nom != kAutre; });
    std::stable_sort(fiches.begin(), autres, [](const Fiche& a, const Fiche& b) {
        return plateforme::seRangeAvant(a.nom, b.nom);
    });
    return fiches;
}
