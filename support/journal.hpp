// Le journal : l'unique trace de ce que l'assistant a fait pendant cette exécution.
//
// Chaque message devient une ligne horodatée, gardée en mémoire pour le rapport et ajoutée aussitôt
// au fichier « Library/Logs/Assistant Lumivia.log » du dossier personnel. Le fichier grandit d'une
// exécution à l'autre ; personne ne le relit. Un fichier qui ne s'écrit pas ne se remarque pas :
// les lignes restent en mémoire, donc dans le rapport. Fil principal.
#pragma once

#include <string>
#include <vector>

class Journal {
public:
    // L'unique journal, créé au premier usage et vivant jusqu'à la fin du processus.
    static Journal& shared();
    // Une copie noterait à part, et ses lignes manqueraient au rapport.
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    // Ajoute « [date heure] message ». Le message peut porter des fins de ligne.
    void note(const std::string& message);

    // Les lignes de cette exécution, dans l'ordre, sans fin de ligne.
    const std::vector<std::string>& lignes() const { return lignes_; }

private:
    Journal();
    void ecrire(const std::string& ligne);
    [[nodiscard]] bool ajouterAuFichier(const std::string& ligne) const;

    std::vector<std::string> lignes_;
    bool peutEtreCoupe_ = true; // le fichier, par une fin brutale ou un disque plein
    const std::string fichier_;
};
