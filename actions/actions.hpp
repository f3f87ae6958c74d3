// Tout ce que l'assistant fait faire au système : le retrait des anciens pilotes dans le Terminal,
// le redémarrage, la relance après lui, l'ouverture des Réglages. Fil principal.
#pragma once

#include <optional>
#include <string>

struct Actions {
    // Le dossier de l'assistant dans la bibliothèque de l'utilisateur, et le fichier de résultat
    // que le script y laisse. Calculés au premier usage.
    static const std::string& dossier();
    static const std::string& fichierResultat();

    // Vrai quand le dernier script demandait de reconstruire les collections d'extensions.
    static inline bool reconstructionDemandee = false;

    // Écrit le script de retrait et demande au Terminal de l'ouvrir. Vrai quand le Terminal en a
    // été chargé ; cela ne dit rien du retrait lui-même, que seul resultatRetrait connaît. Un
    // script qui ne s'écrit pas laisse une ligne au journal, et rien n'est lancé.
    [[nodiscard]] static bool lancerRetraitDansTerminal(bool reconstruire);

    struct ResultatRetrait {
        std::string sortie; // tout ce que le script a affiché
        bool ok = false;
    };

    // Le résultat du dernier retrait ; absent tant que le script n'a pas fini. Ne change rien.
    [[nodiscard]] static std::optional<ResultatRetrait> resultatRetrait();

    // Programme la relance de l'assistant, puis demande le redémarrage du Mac et revient aussitôt.
    // Un refus n'est pas rapporté.
    static void redemarrer();

    // Fichier de l'agent qui rouvre l'assistant à la prochaine session.
    static const std::string& agentRelance();

    // Écrit l'agent ; le journal dit si c'est fait, ou pourquoi non.
    static void programmerRelance();

    // Retire l'agent. Vrai quand il était là, même si son retrait échoue : cette ouverture de
    // l'assistant suit un redémarrage qu'il a demandé.
    [[nodiscard]] static bool annulerRelance();

    // Ouvre les Réglages à l'endroit où se gèrent les extensions. Un échec n'est pas rapporté.
    static void ouvrirReglagesExtensions();
};
