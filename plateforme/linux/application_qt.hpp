// L'objet application de Qt, créé au premier besoin et gardé jusqu'à la fin. Fil principal.
#pragma once

#include <QtWidgets/QApplication>

namespace plateforme {

QApplication& applicationQt();

} // namespace plateforme
