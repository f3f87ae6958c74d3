#include "dmx/motif.hpp"

namespace {

constexpr std::uint8_t kPlein = 255;
constexpr std::int64_t kTramesParPhase = 15;

} // namespace

std::uint8_t valeurCanaux(MotifDMX motif, std::int64_t n) {
    const bool allume = motif == MotifDMX::plein ||
                        (motif == MotifDMX::clignotant && (n / kTramesParPhase) % 2 == 0);
    return allume ? kPlein : 0;
}

const char* nomMotif(MotifDMX motif) {
    switch (motif) {
    case MotifDMX::plein:
        return "plein";
    case MotifDMX::noir:
        return "noir";
    case MotifDMX::clignotant:
        return "clignotant";
    }
    return "";
}
