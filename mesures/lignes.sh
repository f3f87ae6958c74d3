# Les lignes du tableau, hors celles des trames : ce que chacune lance, et ce qu'elle en dit. À sourcer
# après tableau.sh, `programmes` désignant les programmes de mesure construits.
# shellcheck shell=bash

: "${racine:?}" "${travail:?}" "${programmes:?}" "${croise:?}"

# Démarrage : du lancement du processus à la fenêtre peinte.
fenetre_assistant() { sur complet "$programmes/commun/mesure_chronometrer" 1 "$programmes/demarrage/mesure_fenetre"; }
fenetre_nue() { "$programmes/commun/mesure_chronometrer" 1 "$programmes/demarrage/mesure_fenetre_nue"; }
fenetre_sans_emoji() { "$programmes/commun/mesure_chronometrer" 1 "$programmes/demarrage/mesure_fenetre_nue" sans-emoji; }

mesurer_demarrage() {
    alterner "$(tours 11 41)" fenetre_assistant fenetre_nue "$travail/demarrage"
    ligne_rapport "Démarrage, jusqu'à la fenêtre peinte / fenêtre nue, avec un émoji" \
        "$travail/demarrage" 1e6 ms 3 ≤ 1.25
    alterner "$(tours 11 41)" fenetre_assistant fenetre_sans_emoji "$travail/demarrage-sans"
    ligne_rapport "Démarrage / fenêtre nue, sans émoji" "$travail/demarrage-sans" 1e6 ms 3 ≤ 1.25
}

# Analyse : les mêmes outils, lancés par nous ou par un interpréteur.
analyse_assistant() { sur complet "$programmes/analyse/mesure_analyse" 50; }
analyse_outils() {
    "$programmes/commun/mesure_chronometrer" 50 /bin/sh "$racine/mesures/analyse/outils.sh" 50 \
        "$travail/complet" "$@"
}
analyse_outils_lus() { analyse_outils lire; }

mesurer_analyse() {
    alterner "$(tours 9 101)" analyse_assistant analyse_outils "$travail/analyse"
    ligne_rapport "Une analyse / les mêmes outils par /bin/sh" "$travail/analyse" 1e6 ms 3 ≤ 1.10
    alterner "$(tours 7 15)" analyse_assistant analyse_outils_lus "$travail/analyse-lue"
    ligne_rapport "La même / le shell lisant aussi ce que les outils affichent" \
        "$travail/analyse-lue" 1e6 ms 3 ≤ ''
}

commande_assistant() { "$programmes/commande/mesure_commande" 300 /bin/echo Lumivia; }
commande_nue() { "$programmes/commande/mesure_commande_nue" 300 /bin/echo Lumivia; }

mesurer_commande() {
    alterner "$(tours 11 41)" commande_assistant commande_nue "$travail/commande"
    ligne_rapport "Une commande / lancer, lire, attendre en C" "$travail/commande" 1e3 µs 3 ≤ 1.15
}

# Cent mégaoctets de sortie, lus et décodés.
bavard=("$programmes/sortie/mesure_produire" 100000000)
sortie_assistant() { "$programmes/sortie/mesure_sortie" "${bavard[@]}"; }
sortie_nue() { "$programmes/sortie/mesure_sortie_nue" "${bavard[@]}"; }
sortie_accents() { "$programmes/sortie/mesure_sortie" "${bavard[@]}" accents; }
sortie_accents_nue() { "$programmes/sortie/mesure_sortie_nue" "${bavard[@]}" accents; }

mesurer_sortie() {
    alterner "$(tours 11 31)" sortie_assistant sortie_nue "$travail/sortie"
    ligne_rapport "Vitesse de lecture, 100 Mo / un seul tampon en C" "$travail/sortie" 1e6 ms 4 ≥ 0.7
    alterner "$(tours 7 15)" sortie_accents sortie_accents_nue "$travail/accents"
    ligne_rapport "La même, un caractère accentué tous les quinze" "$travail/accents" 1e6 ms 4 ≥ ''
}

# Journal : la même ligne au même endroit, dans un fichier neuf à chaque passage.
journal_assistant() {
    rm -f "$travail"/complet/Users/*/Library/Logs/*
    sur complet "$programmes/journal/mesure_journal" 3000 'Test DMX : clignotant'
}
journal_nu() {
    rm -f "$travail/journal-nu"
    "$programmes/journal/mesure_journal_nu" 3000 "$travail/journal-nu" \
        $'[2024-05-17 14:03:09] Test DMX : clignotant\n'
}

mesurer_journal() {
    alterner "$(tours 11 41)" journal_assistant journal_nu "$travail/journal"
    ligne_rapport "Une ligne du journal / ouvrir, ajouter, fermer en C" "$travail/journal" 1e3 µs 3 ≤ 3
}

# Pages : chaque changement de deux parcours, puis le tout premier affichage de chaque page dans un
# processus neuf, qui ouvre aussi polices et images ; on retient la page la plus lente, par sa médiane.
mesurer_pages() {
    local tours
    tours=$(tours 60 200)
    {
        changements sans-script "$tours" "Analyser mon Mac" -- Continuer Retirer Réessayer Retour &&
            changements pret "$tours" "Analyser mon Mac" Continuer -- Non "Refaire le test"
    } >"$travail/pages" || echouer "le parcours des pages n'est pas allé au bout."
    premiers_affichages "$(tours 5 15)" >"$travail/premiers" ||
        echouer "le premier affichage des pages n'est pas allé au bout."
    ligne_pages "$travail/pages" "Changement de page, la plus lente" tail 8
    ligne_pages "$travail/pages" "Changement de page, la plus rapide" head 8
    ligne_pages "$travail/premiers" "Premier affichage d'une page, la plus lente" tail ''
}

changements() { sur "$1" "$programmes/pages/mesure_pages" duree "${@:2}"; }

premiers_affichages() {
    local i
    for ((i = 0; i < $1; i++)); do
        changements sans-script 3 -- "Analyser mon Mac" Continuer Retirer &&
            changements pret 5 -- "Analyser mon Mac" Continuer Non "Refaire le test" Oui &&
            changements extension-seule 2 -- "Analyser mon Mac" Continuer || return
    done | awk '{ titre = $0; sub(/^[0-9]+ /, "", titre) }
        titre == "Analyse en cours…" { delete vus } # un processus neuf
        !vus[titre]++'
}

ligne_pages() { # « durée titre » par ligne, libellé, tail (la plus lente) ou head (la plus rapide), objectif
    local medianes=$travail/pages-medianes durees=$travail/pages-durees titre
    cut -d ' ' -f 2- "$1" | LC_ALL=C sort -u | while read -r titre; do
        printf '%s %s\n' "$(durees_de "$titre" "$1" | quantile 0.5)" "$titre"
    done | LC_ALL=C sort -g >"$medianes"
    titre=$("$3" -n 1 "$medianes" | cut -d ' ' -f 2-)
    durees_de "$titre" "$1" >"$durees"
    ligne_valeur "$2 (« $titre »)" "$(quantile 0.5 <"$durees")" 2 " ms" \
        "$(nombre "$(quantile 0.25 <"$durees")" 2) – $(nombre "$(quantile 0.75 <"$durees")" 2)" '<' "$4"
}

durees_de() { # en millisecondes
    awk -v t="$1" '{ d = $1; sub(/^[0-9]+ /, "") } $0 == t { print d / 1e6 }' "$2"
}

# Mémoire résidente, au repos sur la page de bienvenue, puis après bien des pages.
memoire_assistant() { sur complet "$programmes/demarrage/mesure_fenetre" memoire; }
memoire_nue() { "$programmes/demarrage/mesure_fenetre_nue" memoire; }

mesurer_memoire() {
    local cent dix_mille
    alterner "$(tours 5 11)" memoire_assistant memoire_nue "$travail/memoire"
    ligne_rapport "Mémoire au repos / fenêtre nue, avec un émoji" "$travail/memoire" 1024 Mo 3 ≤ 1.15
    sur pret "$programmes/pages/mesure_pages" memoire 10000 "Analyser mon Mac" Continuer -- \
        Non "Refaire le test" >"$travail/memoire-pages" ||
        echouer "les 10 000 pages ne sont pas allées au bout."
    read -r cent dix_mille <"$travail/memoire-pages"
    echo "$dix_mille $cent $(awk -v a="$dix_mille" -v b="$cent" 'BEGIN { print a / b }')" \
        >"$travail/pages-memoire"
    ligne_rapport "Mémoire après 10 000 pages et 5 000 lignes de journal / après 100 pages" "$travail/pages-memoire" 1024 Mo 3 ≤ 1.02
}

# Taille de ce qui se livre aux Macs.
mesurer_taille() {
    local application="$travail/Assistant Lumivia.app"
    "$racine/outils/assembler-paquet" "$croise/Assistant Lumivia" "$travail"
    ligne_valeur "Exécutable de macOS, deux puces" \
        "$(stat -c %s "$application/Contents/MacOS/Assistant Lumivia" | awk '{ print $1 / 1e6 }')" 2 \
        " Mo" — ≤ 1.5
    ligne_valeur "Application de macOS, sans la bibliothèque D2XX" \
        "$(du -sb --apparent-size "$application" | awk '{ print $1 / 1e6 }')" 2 " Mo" — ≤ 4
}
