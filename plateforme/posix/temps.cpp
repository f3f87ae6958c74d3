#include "plateforme/boucle.hpp"

#include <cerrno>
#include <ctime>

namespace plateforme {

void dormirMicrosecondes(unsigned microsecondes) {
    timespec reste{static_cast<time_t>(microsecondes / 1'000'000),
                   static_cast<long>(microsecondes % 1'000'000) * 1000};
    while (::nanosleep(&reste, &reste) != 0 && errno == EINTR) {
    }
}

} // namespace plateforme
