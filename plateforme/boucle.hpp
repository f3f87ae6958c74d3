// Le temps et les fils : la boucle principale, la file d'arrière-plan, les minuteurs.
//
// executerSurPrincipal est la seule porte vers le fil principal. Ses tâches passent dans l'ordre,
// une à la fois : une tâche qui ouvre une alerte retient les suivantes jusqu'à ce qu'on la ferme.
#pragma once

#include <functional>
#include <memory>

namespace plateforme {

// Exécute la tâche sur un fil d'arrière-plan (file globale, qualité de service par défaut).
// N'importe quel fil. La tâche est abandonnée sans bruit si l'application se termine avant elle.
void executerEnArrierePlan(std::function<void()> tache);

// Remet la tâche au fil principal. N'importe quel fil.
void executerSurPrincipal(std::function<void()> tache);

// Secondes écoulées depuis un point fixe ; ne recule pas. N'importe quel fil.
double secondes();

// Endort le fil appelant au moins ce nombre de microsecondes.
void dormirMicrosecondes(unsigned microsecondes);

// Tant qu'elle vit, le système ne ralentit pas l'application, même si sa fenêtre est cachée :
// la cadence des trames DMX en dépend. Se crée et se détruit sur n'importe quel fil.
class ActiviteUrgente {
public:
    explicit ActiviteUrgente(const char* raison);
    ~ActiviteUrgente();
    ActiviteUrgente(const ActiviteUrgente&) = delete;
    ActiviteUrgente& operator=(const ActiviteUrgente&) = delete;

private:
    struct Natif;
    std::unique_ptr<Natif> natif_;
};

// Minuteur répétitif de la boucle principale. Il s'arrête quand on le détruit, ce qui est permis
// depuis son propre battement. Il se tait pendant une alerte. Fil principal.
class Minuteur {
public:
    Minuteur(double intervalleEnSecondes, std::function<void()> battement);
    ~Minuteur();
    Minuteur(const Minuteur&) = delete;
    Minuteur& operator=(const Minuteur&) = delete;

private:
    struct Natif;
    std::unique_ptr<Natif> natif_;
};

} // namespace plateforme
