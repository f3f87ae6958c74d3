#include "mac_simule/banc/phrases.hpp"

#include <QtCore/QLocale>

#include <array>

namespace banc {

namespace {

constexpr d2xx::Nanosecondes kPerte = d2xx::microsecondes(1'000'000);

const QLocale& francais() {
    static const QLocale locale(QLocale::French, QLocale::France);
    return locale;
}

QString pourCent(unsigned niveau) {
    return QString("%1 %").arg((niveau * 100 + 127) / 255);
}

QString lumiere(const d2xx::Reception& reception) {
    if (reception.niveauMin != reception.niveauMax) {
        return QString("Canaux de %1 à %2")
            .arg(pourCent(reception.niveauMin), pourCent(reception.niveauMax));
    }
    switch (reception.niveauMax) {
    case 0:
        return "Noir, 0 %";
    case 255:
        return "Plein feu, 100 %";
    default:
        return "Allumé à " + pourCent(reception.niveauMax);
    }
}

QString cadence(const d2xx::Reception& reception) {
    return QString("%1 trames par seconde, %2 reçues")
        .arg(francais().toString(reception.milliTramesParSeconde / 1000.0, 'f', 1),
             francais().toString(static_cast<qulonglong>(reception.trames)));
}

// La limite enfreinte, en une phrase, dans l'ordre des verdicts ; vide pour un signal correct.
QString defaut(d2xx::Verdict verdict) {
    static const std::array<const char*, 10> phrases{
        "",
        "la ligne n'est pas réglée pour le DMX (250\u202f000 bauds, 8 bits, 2 bits d'arrêt)",
        "BREAK trop court, moins de 88 µs",
        "marque après BREAK trop courte, moins de 8 µs",
        "trame coupée par la suivante",
        "trame qui n'a pas ses 513 créneaux",
        "code de départ différent de 0",
        "plus d'une seconde entre deux trames",
        "BREAK lisible, mais sous les 92 µs demandées à un émetteur",
        "marque lisible, mais sous les 12 µs demandées à un émetteur",
    };
    return phrases.at(static_cast<std::size_t>(verdict));
}

} // namespace

Constat constater(const std::optional<d2xx::Reception>& reception, d2xx::Nanosecondes maintenant) {
    Constat constat;
    constat.lumiere = "Aucun signal";
    constat.reception = "Le projecteur attend des trames DMX.";
    if (!reception || reception->trames == 0 || maintenant - reception->derniereTrame > kPerte) {
        return constat;
    }
    const QString faute = defaut(reception->verdict);
    constat.signal = faute.isEmpty() ? Constat::Signal::correct : Constat::Signal::fautif;
    constat.diagnostic = faute.isEmpty() ? "Signal correct" : "Signal fautif : " + faute;
    constat.reception = cadence(*reception);
    if (reception->derniereComprise == 0 || maintenant - reception->derniereComprise > kPerte) {
        constat.lumiere = "Signal illisible";
    } else {
        constat.lumiere = lumiere(*reception);
        constat.niveau = reception->niveauMax / 255.0;
    }
    return constat;
}

} // namespace banc
