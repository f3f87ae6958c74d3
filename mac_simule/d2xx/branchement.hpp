// Le branchement d'un émetteur : son fichier de etat/usb, suivi depuis l'ouverture.
//
// Un départ est définitif : l'émetteur rebranché est un autre périphérique, même sous le même nom.
// Un seul fil à la fois.
#pragma once

#include <string>

#include <sys/types.h>

namespace d2xx {

class Branchement {
public:
    explicit Branchement(std::string fichier);
    ~Branchement();

    // Vrai dès que le fichier est parti, et à jamais. Un appel système.
    [[nodiscard]] bool rompu();

private:
    std::string fichier_;
    int tenu_; // ouvert, il garde son numéro : aucun fichier neuf ne le reprend
    ino_t numero_;
    bool rompu_ = false;
};

} // namespace d2xx
