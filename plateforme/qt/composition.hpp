// La composition d'un texte : ce que Qt reçoit pour le dessiner comme un Mac le ferait. Ce qui
// se lit, se copie et s'énonce reste le texte d'origine. Fonctions pures.
#pragma once

#include <QtCore/QString>
#include <QtGui/QFont>

namespace plateforme {

// Vrai quand une seule police ne suffit pas : il faut alors texteRiche.
bool demandeUnTexteRiche(const QString& texte);

// Le texte en HTML, ses espaces et ses fins de ligne gardés, la suite d'une étape alignée sous son
// premier mot. Ses lignes ont toutes la hauteur que veut cette police : sans quoi une autre, de
// secours et plus haute, écarterait les siennes.
QString texteRiche(const QString& texte, const QFont& police);

// Les mêmes mots, sans les coupures que plateforme/posix/typographie.hpp interdit.
QString sansCoupureFautive(const QString& texte);

// Le texte d'origine d'une sélection, telle que Qt la donne.
QString texteACopier(const QString& selection);

} // namespace plateforme
