# Ce que partagent ./lancer, ./tester, ./mesurer et ./empaqueter. À sourcer, `racine` posée.
# shellcheck shell=bash

: "${racine:?la racine du dépôt doit être posée}"

dire() { printf '→ %s\n' "$*"; }

# Une phrase claire, puis la fin. Statut 2 : la demande est mauvaise ; 1 : le travail a échoué.
echouer() {
    printf 'Erreur : %s\n' "$1" >&2
    exit "${2:-1}"
}

# Exécute en administrateur, par sudo si l'on n'est pas root.
en_administrateur() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echouer "il manque des paquets, et ni root ni sudo n'est disponible pour les installer."
    fi
}

# Montre qu'un long travail avance : un point toutes les cinquante lignes de sa sortie, gardée à part.
avec_points() {
    local trace=$1
    shift
    "$@" 2>&1 | tee "$trace" | awk 'NR % 50 == 0 { printf "."; fflush() } END { print "" }'
    return "${PIPESTATUS[0]}"
}

# Installe ceux des paquets Debian de la liste qui manquent.
installer_paquets() {
    local liste=$1 manquants=() paquet trace
    while read -r paquet; do
        case $(dpkg-query -W -f='${db:Status-Abbrev}' "$paquet" 2>/dev/null) in
        ii*) ;;
        *) manquants+=("$paquet") ;;
        esac
    done < <(grep -vE '^[[:space:]]*(#|$)' "$liste")
    [ ${#manquants[@]} -eq 0 ] && return
    dire "Installation de ${#manquants[@]} paquet(s) Debian : ${manquants[*]}"
    trace=$(mktemp)
    if ! avec_points "$trace" en_administrateur apt-get -q update ||
        ! avec_points "$trace" en_administrateur env DEBIAN_FRONTEND=noninteractive apt-get -q \
            install -y --no-install-recommends "${manquants[@]}"; then
        tail -n 15 "$trace" >&2
        echouer "l'installation des paquets Debian a échoué (ci-dessus, la fin de ce qu'a dit apt-get)."
    fi
    rm -f "$trace"
}

# Configure un préréglage et construit ces cibles (toutes, sans cible).
construire() {
    local prereglage=$1 trace
    shift
    trace=$(mktemp)
    dire "Construction (préréglage « $prereglage »)"
    (cd "$racine" && cmake --preset "$prereglage") >"$trace" 2>&1 || {
        tail -n 20 "$trace" >&2
        echouer "la configuration de la construction a échoué."
    }
    rm -f "$trace"
    (cd "$racine" && NINJA_STATUS='  [%f/%t] ' cmake --build --preset "$prereglage" \
        ${1:+--target "$@"}) || echouer "la construction a échoué."
}
