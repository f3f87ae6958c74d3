// L'horloge du Mac simulé.
#pragma once

namespace plateforme::simule {

// De combien le temps des minuteurs est accéléré (1 : le temps ordinaire). N'importe quel fil.
double vitesseHorloge();

} // namespace plateforme::simule
