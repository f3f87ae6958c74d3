// Les vues natives derrière plateforme/vues.hpp. Réservé à ce dossier ; fil principal.
#pragma once

#include "plateforme/vues.hpp"

#import <AppKit/AppKit.h>

namespace plateforme {

struct VueNative {
    NSView* __strong vue;
};

namespace macos {

inline std::shared_ptr<VueNative> tenir(NSView* vue) {
    return std::make_shared<VueNative>(VueNative{vue});
}

// La vue d'AppKit d'une poignée dont le genre est connu.
template <typename Genre>
Genre* vueDe(const Vue& vue) {
    return static_cast<Genre*>(vue.native().vue);
}

} // namespace macos
} // namespace plateforme
