// L'objet application de Qt, créé au premier besoin et gardé jusqu'à la fin. Fil principal.
#pragma once

#include <QtWidgets/QApplication>

namespace plateforme {

QApplication& applicationQt();

// Met dans le presse-papiers ce qui est sélectionné dans l'étiquette qui a le clavier.
void copierSelection();

} // namespace plateforme
