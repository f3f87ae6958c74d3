// Une bibliothèque dont aucun réglage ne réussit : la ligne reste comme la puce l'avait.
#include "mac_simule/d2xx/ouverture.hpp"

d2xx::Statut d2xx::Ouverture::regler(const Ligne& /*voulue*/) {
    return erreurES;
}
