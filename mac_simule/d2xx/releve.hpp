// Le relevé daté des événements de la ligne, dans le fichier que nomme LUMIVIA_RELEVE_DMX.
//
// Texte, un événement par ligne : « <instant> <événement> <valeur>[ <suite>] », instants de
// CLOCK_MONOTONIC en nanosecondes, première ligne « # dmx-record 1 … ». Le fichier est réservé
// d'avance et projeté en mémoire : noter n'appelle pas le système, n'alloue rien, ne verrouille
// rien. Un seul fil à la fois. Les ouvertures d'un processus s'y suivent ; la première l'efface. Un
// processus qui finit sans fermer laisse des zéros après la dernière ligne.
#pragma once

#include "mac_simule/d2xx/ligne.hpp"

#include <cstddef>
#include <span>

namespace d2xx {

class Releve {
public:
    // Réserve la place d'une ouverture. Le relevé ne note rien quand il n'est pas demandé, ou que
    // son fichier ne peut pas être réservé : une phrase sur l'erreur standard le dit.
    Releve();

    // Rend la place qui reste.
    ~Releve();
    Releve(const Releve&) = delete;
    Releve& operator=(const Releve&) = delete;

    void noter(Nanosecondes instant, const char* evenement, std::uint64_t valeur,
               const char* suite = "");

    // « write N hex » : le nombre d'octets et les huit premiers ; puis le retour de l'écriture, et
    // de temps en temps les temps de calcul du processus et du fil appelant.
    void noterEcriture(Nanosecondes instant, std::span<const std::uint8_t> octets);
    void noterRetour(Nanosecondes instant, std::size_t octets);

private:
    int fichier_ = -1;
    char* debut_ = nullptr; // nul : pas de relevé
    unsigned ecritures_ = 0;
};

} // namespace d2xx
