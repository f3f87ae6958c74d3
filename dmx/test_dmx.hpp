// La session sur l'émetteur USB DMX pendant le test du projecteur : ouvrir, envoyer, fermer.
//
// Le fil principal appelle tout ce qui est public. Un seul autre fil sert la session, celui des
// trames, entre le premier envoyer et le fermer qui suit :
//   - il tient la session par une référence faible jusqu'à ce qu'il parte, forte ensuite ;
//   - il lit le motif sous le verrou, une fois par trame, et sa consigne sans le verrou ;
//   - fermer lui demande du noir, attend, lui demande de finir, attend encore, puis le rejoint : il
//     ne touche plus l'émetteur quand celui-ci se ferme.
// Un appel à la bibliothèque peut ne jamais revenir. fermer abandonne alors le fil : l'émetteur
// n'est pas fermé sous lui, et comme sa consigne, sa poignée et sa bibliothèque sont à lui, il
// s'arrête à son retour sans rien toucher de la session suivante.
// Détruire l'objet ne ferme ni l'émetteur ni la boucle. La bibliothèque D2XX n'est jamais
// déchargée.
#pragma once

#include "dmx/d2xx.hpp"
#include "dmx/fil_des_trames.hpp"
#include "dmx/motif.hpp"

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

class TestDMX : public std::enable_shared_from_this<TestDMX> {
public:
    using Motif = MotifDMX;

    static std::shared_ptr<TestDMX> creer();
    TestDMX(const TestDMX&) = delete;
    TestDMX& operator=(const TestDMX&) = delete;
    ~TestDMX();

    // Charge la bibliothèque du paquet, ouvre le premier émetteur et règle sa ligne pour le DMX512.
    // Absent quand la session est ouverte (ou l'était déjà), sinon un message pour l'utilisateur ;
    // rappeler réessaie tout depuis le début.
    [[nodiscard]] std::optional<std::string> ouvrir();

    // Fait de ce motif celui qui part à la trame suivante, et met le fil en route au premier appel.
    // La session est ouverte.
    void envoyer(Motif motif);

    // Éteint le projecteur et ferme l'émetteur. N'échoue jamais, se répète sans effet ; bloque un
    // quart de seconde quand des trames partaient, une seconde de plus quand la bibliothèque ne
    // répond plus.
    void fermer();

private:
    TestDMX() = default;
    void configurer();
    void fixerMotif(Motif motif);
    Motif motifCourant();
    // Faux quand il a fallu abandonner le fil.
    [[nodiscard]] bool arreterLeFil();
    // Le corps du fil des trames.
    void envoyerTrames(const FilDesTrames& fil);

    void* lib_ = nullptr;
    FT_HANDLE handle_ = nullptr;
    std::thread thread_;
    std::mutex verrou_;
    Motif motif_ = Motif::noir;
    std::shared_ptr<FilDesTrames> actif_; // le fil qui sert la session ; nul quand rien ne part
};
