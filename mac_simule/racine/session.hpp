// Les processus de la session ouverte sur le Mac simulé : tous descendent du lanceur, qui recueille
// aussi ceux qui se sont détachés. Un seul fil, une seule session par processus.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace mac_simule {

class Session {
public:
    // `racine` est absolue, sans lien. SIGCHLD et les signaux d'arrêt (SIGHUP, SIGINT, SIGTERM)
    // sont désormais attendus par `attendre`.
    explicit Session(std::filesystem::path racine);

    // Démarre un programme (chemin de la machine). Faux quand il ne peut pas l'être.
    bool lancer(const std::filesystem::path& programme, const std::vector<std::string>& arguments);
    // Démarre l'assistant du dossier Applications.
    bool lancerAssistant(const std::vector<std::string>& arguments);

    // Attend un événement ou un dixième de seconde ; rend le signal d'arrêt reçu, ou zéro.
    // Recueille au passage les processus finis.
    int attendre();

    // Met fin à tout : l'assistant d'abord, puis le reste ; ce qui s'entête est tué.
    void terminer();

    // Ce qui tourne encore du Mac simulé : son assistant, ou une fenêtre du Terminal, un outil. Ce
    // qu'une bibliothèque a pu lancer de la machine (un bus de session) n'en est pas : personne ne
    // l'attend, `terminer` y met fin.
    enum class Reste { rien, autre, assistant };
    Reste reste();

    // État (celui de waitpid) du dernier assistant fini.
    int etatAssistant() const { return etatAssistant_; }

private:
    void recueillir();
    bool estAssistant(pid_t pid) const;
    bool estDuMac(pid_t pid) const;
    bool terminerCeux(bool assistants, int secondes);

    std::filesystem::path racine_;
    std::string assistant_;      // chemin de l'exécutable
    std::set<pid_t> assistants_; // ceux que l'on a reconnus vivants
    int etatAssistant_ = 0;
};

} // namespace mac_simule
