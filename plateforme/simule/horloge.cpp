#include "plateforme/simule/horloge.hpp"

#include "mac_simule/faits/faits.hpp"

#include <cstdlib>

namespace plateforme::simule {

double vitesseHorloge() {
    const std::string fait = faits::Mac::duProcessus().lire("vitesse_horloge").value_or("1");
    const double vitesse = std::strtod(fait.c_str(), nullptr);
    return vitesse > 0 ? vitesse : 1;
}

} // namespace plateforme::simule
