// Le relevé daté des événements de la ligne, dans le fichier que nomme LUMIVIA_RELEVE_DMX.
//
// Texte, un événement par ligne : « <instant> <événement> <valeur>[ <suite>] », instants de
// CLOCK_MONOTONIC en nanosecondes, première ligne « # dmx-record 1 … ». Le fichier est réservé
// d'avance et projeté en mémoire : noter n'appelle pas le système, n'alloue rien, ne verrouille
// rien. Un seul fil à la fois. Un processus qui finit sans fermer laisse des zéros après la
// dernière ligne ; le dernier processus qui ouvre le fichier l'efface.
#pragma once

#include "mac_simule/d2xx/ligne.hpp"

#include <cstddef>
#include <span>
#include <string_view>

namespace d2xx {

class Releve {
public:
    // Le relevé du processus ; nul quand il n'est pas demandé ou que son fichier ne peut pas être
    // réservé (une phrase sur l'erreur standard le dit). Il n'est jamais détruit.
    static Releve* duProcessus();

    // Réserve la place d'une session, puis la rend : le fichier a alors sa longueur exacte.
    bool etendre();
    void raccourcir();

    void noter(Nanosecondes instant, std::string_view evenement, std::uint64_t valeur,
               std::string_view suite = {});

    // « write N hex » : le nombre d'octets et les huit premiers.
    void noterEcriture(Nanosecondes instant, std::span<const std::uint8_t> octets);

    // Les temps de calcul du processus et du fil appelant.
    void noterCalcul(Nanosecondes instant);

private:
    Releve(int fichier, char* debut) : fichier_(fichier), debut_(debut) {}

    static Releve* creer();
    void ajouter(std::string_view ligne);

    static constexpr std::size_t capacite = std::size_t{16} << 20; // une heure de trames

    int fichier_;
    char* debut_;
    std::size_t longueur_ = 0;
    bool etendu_ = false;
};

} // namespace d2xx
