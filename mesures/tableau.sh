# Le tableau de ./mesurer : alterner deux commandes, résumer leurs rapports, rendre les lignes.
# À sourcer après fonctions.sh, `travail` désignant un dossier temporaire.
# shellcheck shell=bash

: "${travail:?}"

# Le nombre au rang donné (0,5 : la médiane) d'une liste lue sur l'entrée, un par ligne.
quantile() {
    LC_ALL=C sort -g | awk -v part="$1" '{ v[NR] = $1 }
        END { r = 1 + (NR - 1) * part; b = int(r); h = b < NR ? b + 1 : b
              printf "%.6g\n", v[b] + (v[h] - v[b]) * (r - b) }'
}

# Colonne du fichier, puis son quantile.
colonne() { awk -v c="$2" '{ print $c }' "$1" | quantile "$3"; }

# Exécute tour à tour les deux fonctions, qui affichent chacune un nombre : « a b a/b » par tour.
alterner() {
    local tours=$1 assistant=$2 reference=$3 sortie=$4 a b i
    : >"$sortie"
    for ((i = 0; i < tours; i++)); do
        a=$("$assistant") || echouer "la mesure « $assistant » a échoué."
        b=$("$reference") || echouer "la mesure « $reference » a échoué."
        awk -v a="$a" -v b="$b" 'BEGIN { printf "%s %s %.6f %.6f\n", a, b, a / b, b / a }' \
            >>"$sortie"
    done
}

# Un nombre à la française, avec cette précision.
nombre() { LC_ALL=C awk -v v="$1" -v f="%.$2f" 'BEGIN { printf f, v }' | tr . ,; }

# Vrai quand « valeur signe borne » l'est ; le signe est ≤, ≥, < ou =.
tient() {
    awk -v v="$1" -v s="$2" -v b="$3" 'BEGIN {
        if (s == "≤") r = v <= b; else if (s == "≥") r = v >= b
        else if (s == "<") r = v < b; else r = v == b
        exit !r }'
}

# Une ligne : libellé, mesure, référence, rapport, dispersion, objectif, et si elle le tient.
ligne() { printf '%s\t%s\t%s\t%s\t%s\t%s\t%s\n' "$@" >>"$travail/lignes"; }

verdict() {
    if [ -z "$3" ]; then
        echo '—'
    elif tient "$1" "$2" "$3"; then
        echo oui
    else
        echo non
    fi
}

objectif() { if [ -n "$2" ]; then printf '%s %s' "$1" "$(tr . , <<<"$2")"; else printf '—'; fi; }

# Une ligne de rapports : mesure et référence divisées par `diviseur` et suivies de l'unité ;
# `sens` vaut 3 pour mesure / référence, 4 pour l'inverse (une vitesse).
ligne_rapport() {
    local libelle=$1 fichier=$2 diviseur=$3 unite=$4 sens=$5 signe=$6 borne=$7 r a b
    r=$(colonne "$fichier" "$sens" 0.5)
    a=$(awk -v v="$(colonne "$fichier" 1 0.5)" -v d="$diviseur" 'BEGIN { print v / d }')
    b=$(awk -v v="$(colonne "$fichier" 2 0.5)" -v d="$diviseur" 'BEGIN { print v / d }')
    ligne "$libelle" "$(nombre "$a" 2) $unite" "$(nombre "$b" 2) $unite" "$(nombre "$r" 3)" \
        "$(nombre "$(colonne "$fichier" "$sens" 0.25)" 3) – $(nombre "$(colonne "$fichier" "$sens" 0.75)" 3)" \
        "$(objectif "$signe" "$borne")" "$(verdict "$r" "$signe" "$borne")"
}

# Une ligne sans référence : la valeur elle-même est jugée.
ligne_valeur() {
    local libelle=$1 valeur=$2 decimales=$3 unite=$4 dispersion=$5 signe=$6 borne=$7
    ligne "$libelle" "$(nombre "$valeur" "$decimales")$unite" — — "$dispersion" \
        "$(objectif "$signe" "$borne")${borne:+$unite}" "$(verdict "$valeur" "$signe" "$borne")"
}

readonly ENTETES=$'Mesure\tAssistant\tRéférence\tRapport médian\tQuartiles\tObjectif\tTenu'

# Le tableau au terminal, colonnes alignées.
afficher_tableau() {
    local largeurs=() champs i
    while IFS=$'\t' read -r -a champs; do
        for i in "${!champs[@]}"; do
            [ "${#champs[i]}" -le "${largeurs[i]:-0}" ] || largeurs[i]=${#champs[i]}
        done
    done < <(printf '%s\n' "$ENTETES" && cat "$travail/lignes")
    while IFS=$'\t' read -r -a champs; do
        for i in "${!champs[@]}"; do
            printf '%s%*s' "${champs[i]}" $((largeurs[i] - ${#champs[i]} + 2)) ''
        done
        echo
    done < <(printf '%s\n' "$ENTETES" && cat "$travail/lignes")
}

# Le même, en Markdown.
ecrire_tableau() {
    sed 's/\t/ | /g; s/^/| /; s/$/ |/' <<<"$ENTETES"
    echo '|---|---|---|---|---|---|---|'
    sed 's/\t/ | /g; s/^/| /; s/$/ |/' "$travail/lignes"
}

decrire_machine() {
    printf -- '- processeur : %s, %s cœurs\n' \
        "$(sed -n 's/^model name[[:space:]]*: //p' /proc/cpuinfo | head -n 1)" "$(nproc)"
    printf -- '- mémoire : %s Go\n' \
        "$(awk '/^MemTotal/ { printf "%.0f", $2 / 1048576 }' /proc/meminfo)"
    printf -- '- noyau : Linux %s\n' "$(uname -r | sed 's/-.*//')"
    printf -- '- système : Debian %s\n' "$(cat /etc/debian_version)"
    printf -- '- compilateur : %s\n' "$(c++ --version | head -n 1)"
    printf -- '- Qt : %s, sans écran\n' \
        "$(dpkg-query -W -f='${Version}' qt6-base-dev | sed 's/[+-].*//')"
}
