// Ce que l'adaptateur doit encore au système : de quoi vérifier qu'il rend tout ce qu'il prend.
#pragma once

namespace gnustep {

// Les références que tient encore le programme sur des objets de CoreFoundation ou d'IOKit que
// cette couche lui a donnés. Les bassins sont vidés.
long referencesTenues();

} // namespace gnustep
