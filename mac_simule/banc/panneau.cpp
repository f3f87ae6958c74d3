#include "mac_simule/banc/panneaux.hpp"

namespace banc {

Panneau::Panneau(const QString& titre, faits::Mac mac)
    : colonne_(new QVBoxLayout(this)), mac_(std::move(mac)) {
    colonne_->setContentsMargins(15, 11, 15, 13); // sans le bord
    colonne_->setSpacing(8);
    ajouter(etiquette(Ton::titre, titre));
    setObjectName("carte");
    setStyleSheet(QString("#carte { background: %1; border: 1px solid %2; border-radius: 10px; }")
                      .arg(couleur(Teinte::carte).name(), couleur(Teinte::bord).name()));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QString Panneau::fait(const std::string& nom) const {
    return QString::fromStdString(mac_.texte(nom)).trimmed();
}

} // namespace banc
