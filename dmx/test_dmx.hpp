// La session sur l'émetteur USB DMX pendant le test du projecteur : ouvrir, envoyer, fermer.
//
// Le fil principal appelle tout ce qui est public. Un seul autre fil existe, celui des trames,
// entre le premier envoyer et le fermer qui suit :
//   - il tient la session par une référence faible jusqu'à ce qu'il parte, forte ensuite ;
//   - il lit le motif sous le verrou, une fois par trame, et `actif_` sans le verrou ;
//   - fermer lui demande du noir, attend, abaisse `actif_`, attend encore, puis le rejoint : il ne
//     touche plus l'émetteur quand celui-ci se ferme.
// Détruire l'objet ne ferme ni l'émetteur ni la boucle. La bibliothèque D2XX n'est jamais
// déchargée.
#pragma once

#include "dmx/d2xx.hpp"
#include "dmx/motif.hpp"

#include <atomic>
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
    std::optional<std::string> ouvrir();

    // Fait de ce motif celui qui part à la trame suivante, et met le fil en route au premier appel.
    // La session est ouverte.
    void envoyer(Motif motif);

    // Éteint le projecteur et ferme l'émetteur. N'échoue jamais, se répète sans effet ; bloque un
    // quart de seconde quand des trames partaient.
    void fermer();

private:
    TestDMX() = default;
    void configurer();
    void fixerMotif(Motif motif);
    Motif motifCourant();
    void envoyerTrames();

    void* lib_ = nullptr;
    FT_HANDLE handle_ = nullptr;
    std::thread thread_;
    std::mutex verrou_;
    Motif motif_ = Motif::noir;
    std::atomic<bool> actif_{false};
};
