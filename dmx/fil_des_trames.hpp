// Ce qu'un fil des trames garde pour lui, de son départ à sa fin : la session peut passer à un
// autre fil pendant qu'il est retenu dans la bibliothèque D2XX.
#pragma once

#include "dmx/d2xx.hpp"

#include <atomic>

struct FilDesTrames {
    enum class Consigne {
        envoyer,
        finir,  // après la trame en cours
        partir, // dès que la bibliothèque rend la main : la session ne l'attend plus
    };

    FilDesTrames(void* bibliotheque, FT_HANDLE poignee) : lib(bibliotheque), handle(poignee) {}

    void* const lib;
    const FT_HANDLE handle;
    std::atomic<Consigne> consigne{Consigne::envoyer}; // écrite par le fil principal
    std::atomic<bool> parti{false};                    // écrit par le fil, en dernier
};
