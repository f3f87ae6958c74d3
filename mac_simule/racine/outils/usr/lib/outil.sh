# Ce que les outils d'ici ont en commun, à sourcer. Chacun répond d'après le Mac où il est posé, sans
# changer de dossier ni lancer de processus : la durée d'une analyse se mesure.
# shellcheck shell=sh

racine=${0%/*}/../..

# La première ligne de ce fait, dans `valeur` ; faux quand il n'y en a pas.
fait() {
    valeur=
    { IFS= read -r valeur <"$racine/etat/$1"; } 2>/dev/null || [ -n "$valeur" ]
}

echouer() { # code phrase
    echo "$2" >&2
    exit "$1"
}

# Les extensions chargées, comme kextstat et kmutil les montrent toutes deux.
lister_charges() { # premier rang, première adresse, taille
    [ ! -r "$racine/etat/kexts_charges" ] || while IFS='	' read -r identifiant numero _; do
        printf '%5d    0 0xffffff7f%08x %-10s %-10s %s (%s) %s <5 3 1>\n' "$1" "$2" "$3" "$3" \
            "$identifiant" "$numero" 00000000-0000-0000-0000-000000000000
        set -- $(($1 + 1)) $(($2 + $3)) "$3"
    done <"$racine/etat/kexts_charges"
}
