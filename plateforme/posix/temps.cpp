#include "plateforme/boucle.hpp"

#include <chrono>
#include <thread>

namespace plateforme {

void dormirMicrosecondes(unsigned microsecondes) {
    std::this_thread::sleep_for(std::chrono::microseconds(microsecondes));
}

} // namespace plateforme
