// L'émetteur du Mac simulé et son ouverture : ce que les dix fonctions appellent.
//
// Il n'y en a qu'un, jamais détruit : le processus peut finir pendant qu'un fil envoie. Un verrou
// fait passer les appels l'un après l'autre, comme dans un pilote ; personne ne le dispute au fil
// d'envoi tant qu'on ne ferme pas sous lui.
#pragma once

#include "mac_simule/d2xx/ouverture.hpp"

#include <array>
#include <mutex>

namespace d2xx {

class Appareil {
public:
    static Appareil& unique();

    // Ouvre l'émetteur de ce rang. Une ouverture dont l'émetteur a été débranché laisse la place.
    Statut ouvrir(std::int32_t rang, FT_HANDLE& poignee);
    Statut fermer(const void* poignee);

    // Fait servir l'appel par l'ouverture de cette poignée.
    template <class Appel>
    Statut servir(const void* poignee, const Appel& appel) {
        const std::scoped_lock garde(verrou_);
        return connait(poignee) ? appel(*ouverture_) : poigneeInconnue;
    }

private:
    Appareil() = default;

    [[nodiscard]] bool connait(const void* poignee) const {
        return ouverture_ && poignee == poignee_;
    }

    // Une poignée est une place de l'anneau : fermée, elle reste inconnue longtemps.
    std::array<char, 1024> poignees_{};
    std::size_t ouvertures_ = 0;

    const void* poignee_ = nullptr; // de l'ouverture en cours
    std::unique_ptr<Ouverture> ouverture_;
    std::mutex verrou_;
};

// Le relevé des appels d'ouverture, de réglage et de fermeture, pour les essais : ajoute une ligne
// (« FT_SetBaudRate 250000 : 0 ») au fichier que nomme LUMIVIA_APPELS_D2XX, et rend le statut. La
// boucle de trames n'y écrit rien.
FT_STATUS noterAppel(const std::string& appel, FT_STATUS statut);

} // namespace d2xx
