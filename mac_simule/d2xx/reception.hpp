// Ce que le récepteur virtuel voit, partagé avec le banc par le fichier projeté etat/reception.
//
// La bibliothèque D2XX simulée écrit, tout autre lit, sans verrou : les champs voyagent en mots
// atomiques entourés d'un numéro de séquence, impair pendant une écriture. Le fil d'envoi n'y fait
// aucun appel système.
#pragma once

#include "mac_simule/d2xx/recepteur.hpp"

#include <array>
#include <atomic>
#include <optional>
#include <string>

namespace d2xx {

struct Reception {
    std::uint64_t trames = 0; // depuis l'ouverture de la session
    std::uint64_t correctes = 0;
    Nanosecondes derniereTrame = 0;    // fin du dernier créneau reçu ; 0 : aucune trame
    Nanosecondes derniereComprise = 0; // de même, trames que le projecteur suit
    std::uint32_t milliTramesParSeconde = 0;
    std::int32_t processus = 0; // celui qui tient la session
    std::uint8_t ouverte = 0;   // 1 : session ouverte ; le reste si le processus finit sans fermer
    std::uint8_t niveauMin = 0; // de la dernière trame comprise
    std::uint8_t niveauMax = 0;
    Verdict verdict = Verdict::correct;       // de la dernière trame
    Verdict dernierDefaut = Verdict::correct; // dernier verdict autre que correct
    std::array<std::uint8_t, 3> reserve{};
};

class ReceptionPartagee {
public:
    static constexpr std::uint64_t marqueDeVersion = 0x4C554D5652430001; // « LUMVRC », version 1

    // Un seul écrivain à la fois.
    void publier(const Reception& reception);

    // Absente quand la version est autre, ou que l'écrivain s'est arrêté au milieu d'une écriture.
    [[nodiscard]] std::optional<Reception> lire() const;

private:
    using Mots = std::array<std::uint64_t, sizeof(Reception) / sizeof(std::uint64_t)>;
    static_assert(sizeof(Mots) == sizeof(Reception));
    static_assert(std::atomic<std::uint64_t>::is_always_lock_free);

    std::atomic<std::uint64_t> version_;
    std::atomic<std::uint64_t> sequence_;
    std::array<std::atomic<std::uint64_t>, std::tuple_size_v<Mots>> mots_;
};

// Lit le fichier de réception d'une racine. Absente : aucune session n'a encore été ouverte, ou le
// fichier n'est pas lisible. N'importe quel fil.
std::optional<Reception> lireReception(const std::string& racine);

// Nom du fichier dans une racine, pour qui l'écrit.
std::string cheminDeReception(const std::string& racine);

} // namespace d2xx
