// La composition d'un paragraphe : ce que Qt reçoit pour le dessiner comme un Mac le ferait. Ce qui
// se lit, se copie et s'énonce reste le texte d'origine. Fonctions pures.
#pragma once

#include <QtCore/QString>

namespace plateforme {

// Vrai quand une seule police ne suffit pas : il faut alors texteRiche.
bool demandeUnTexteRiche(const QString& texte);

// Le texte en HTML, ses espaces et ses fins de ligne gardés. Ses lignes ont toutes cette hauteur,
// en pixels : sans quoi une police de secours, plus haute, écarterait les siennes.
QString texteRiche(const QString& texte, int hauteurDeLigne);

// Les mêmes mots, où une ligne ne finit pas par un guillemet ouvrant et ne commence pas par une
// ponctuation : les espaces qui les touchent deviennent insécables.
QString sansCoupureFautive(const QString& texte);

// Le texte d'origine d'une sélection, telle que Qt la donne.
QString texteACopier(const QString& selection);

} // namespace plateforme
