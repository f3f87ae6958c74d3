// La liste des extensions système, relue ligne par ligne avec Qt.
#include "diagnostic/interpretation.hpp"
#include "fuzz/entree.hpp"

#include <QtCore/QByteArrayList>

void essai::eprouver(std::string_view octets) {
    const QByteArray listage(octets.data(), static_cast<qsizetype>(octets.size()));
    bool present = false;
    bool actif = false;
    for (const QByteArray& ligne : listage.split('\n')) {
        const bool nommee = ligne.contains("com.ftdi.vcp.dext");
        present = present || nommee;
        actif = actif || (nommee && ligne.contains("activated enabled"));
    }
    const EtatDext lu = lireEtatDext(octets);
    exiger(lu.present == present, "présente quand une ligne la nomme");
    exiger(lu.actif == actif, "active quand la ligne qui la nomme le dit");
    const std::string avec = std::string(octets) + "\ncom.ftdi.vcp.dext [activated enabled]";
    exiger(lireEtatDext(avec).actif, "une ligne active suffit, quoi qui la précède");
}
