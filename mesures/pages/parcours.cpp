#include "mesures/pages/parcours.hpp"

#include "mac_simule/robot/regard.hpp"
#include "mac_simule/robot/regard_qt.hpp"
#include "mesures/commun/duree.h"

#include <QtCore/QThread>
#include <QtWidgets/QPushButton>

#include <cstdio>

namespace mesures {
namespace {

constexpr long long kPatience = 10'000'000'000; // ns sans que le bouton voulu paraisse

} // namespace

void Parcours::travailler(QPushButton* bouton) {
    const long long debut = nanosecondes();
    if (bouton != nullptr) {
        bouton->click();
    }
    robot::traiter();
    const long long duree = nanosecondes() - debut;
    if (const std::string titre = robot::titre(); titre != page_) {
        page_ = titre;
        changements_.push_back({duree, titre});
    }
}

bool Parcours::presser(const std::string& titre) {
    const long long limite = nanosecondes() + kPatience;
    travailler(nullptr);
    QPushButton* bouton = nullptr;
    while ((bouton = robot::bouton(titre)) == nullptr) {
        if (nanosecondes() > limite) {
            std::fprintf(stderr, "Le bouton « %s » ne vient pas.\n", titre.c_str());
            return false;
        }
        QThread::msleep(1);
        travailler(nullptr);
    }
    travailler(bouton);
    return true;
}

} // namespace mesures
