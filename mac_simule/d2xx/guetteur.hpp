// Guette le débranchement d'un émetteur : le départ de son fichier de etat/usb.
//
// Un fil à lui dort jusqu'à ce que le fichier s'en aille ; le fil d'envoi ne lit qu'un booléen. Un
// départ est définitif : l'émetteur rebranché est un autre périphérique. Détruire le guetteur
// arrête son fil et l'attend ; s'il vit encore à la fin du processus, on ne le détruit pas. Le
// créer lance une exception quand il ne reste plus de fil.
#pragma once

#include <atomic>
#include <string>
#include <thread>

namespace d2xx {

class Guetteur {
public:
    explicit Guetteur(std::string fichier);
    ~Guetteur();

    // N'importe quel fil, sans appel système.
    [[nodiscard]] bool parti() const { return parti_.load(std::memory_order_relaxed); }

private:
    void guetter();

    std::string fichier_;
    int avis_;
    int depart_; // négatif : personne ne préviendra
    std::atomic<bool> parti_ = false;
    std::atomic<bool> fini_ = false;
    std::thread fil_; // le dernier : il se sert des autres
};

} // namespace d2xx
