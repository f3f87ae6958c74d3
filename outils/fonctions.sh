# Ce que partagent ./lancer, ./tester, ./mesurer et ./empaqueter. À sourcer, `racine` posée.
# shellcheck shell=bash

: "${racine:?la racine du dépôt doit être posée}"

# `cd` suivrait CDPATH, et dirait où il va.
unset CDPATH
# Ce que les commandes installent et construisent se lit aussi par un autre utilisateur : celui des
# essais n'est pas root.
umask 022

dire() { printf '→ %s\n' "$*"; }

# Une phrase claire, puis la fin. Statut 2 : la demande est mauvaise ; 1 : le travail a échoué.
echouer() {
    printf 'Erreur : %s\n' "$1" >&2
    exit "${2:-1}"
}

# --- La fin d'une commande, même interrompue : ni processus ni dossier temporaire ne restent ---

temporaire=
mene=

# Crée le dossier temporaire de la commande, et laisse son chemin dans $temporaire.
ouvrir_temporaire() { # nom [dossier]
    temporaire=$(mktemp -d "${2:-${TMPDIR:-/tmp}}/$1.XXXXXX") ||
        echouer "le dossier temporaire ne peut pas être créé."
}

# Lance une commande dans un groupe de processus à elle et attend sa fin ; une interruption est ainsi
# entendue tout de suite, et emporte tout le groupe. Elle n'emporte pas ce que `reserver` a réservé : un
# processus qu'elle oublierait le garderait.
mener() {
    local statut=0
    set -m
    (
        [ "$1" = flock ] || liberer
        "$@"
    ) </dev/null &
    mene=$!
    set +m
    wait "$mene" || statut=$?
    mene=
    return "$statut"
}

# Demande au groupe mené de finir, et l'attend ; au bout de quinze secondes, ne le lui demande plus.
arreter_groupe() {
    local tours
    [ -n "$mene" ] || return 0
    kill -TERM -- "-$mene" 2>/dev/null || true
    for ((tours = 0; tours < 150; tours++)); do
        kill -0 -- "-$mene" 2>/dev/null || return 0
        sleep 0.1
    done
    kill -KILL -- "-$mene" 2>/dev/null || true
}

a_la_fin() {
    local statut=$?
    trap '' HUP INT TERM
    exec 2>/dev/null # le shell dirait de chaque processus du groupe qu'il est mort
    arreter_groupe
    [ -z "$temporaire" ] || rm -rf "$temporaire"
    exit "$statut"
}
trap a_la_fin EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# --- Le dépôt, que deux commandes peuvent partager ---

# Les commandes rangent dans le dépôt ce qu'elles fabriquent.
verifier_depot() {
    mkdir -p "$racine/construction" "$racine/sortie" 2>/dev/null || true
    { [ -w "$racine/construction" ] && [ -w "$racine/sortie" ]; } ||
        echouer "on ne peut pas écrire dans « $racine », où les commandes rangent construction/ et sortie/."
}

# Réserve une chose du dépôt à cette commande, jusqu'à `liberer` ou jusqu'à sa fin. La commande qui
# arrive ensuite attend, et le dit.
reserver() { # nom
    command -v flock >/dev/null || return 0 # un Mac n'en a pas
    exec {verrou}>"$racine/construction/.verrou-$1"
    if ! flock -n "$verrou"; then
        dire "Une autre commande travaille dans ce dépôt ($1) : celle-ci attend qu'elle ait fini"
        mener flock "$verrou"
    fi
}

liberer() { [ -z "${verrou:-}" ] || exec {verrou}>&-; }

# --- Paquets et construction ---

# Exécute en administrateur, par sudo si l'on n'est pas root.
en_administrateur() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echouer "il manque des paquets Debian, et ni root ni sudo n'est disponible pour les installer."
    fi
}

# Montre qu'un long travail avance : un point toutes les cinquante lignes de sa sortie, gardée à part.
avec_points() {
    local trace=$1
    shift
    "$@" 2>&1 | tee "$trace" | awk 'NR % 50 == 0 { printf "."; fflush() } END { print "" }'
    return "${PIPESTATUS[0]}"
}

# Ceux des paquets Debian de la liste qui manquent, un par ligne.
paquets_manquants() {
    local paquet
    while read -r paquet; do
        case $(dpkg-query -W -f='${db:Status-Abbrev}' "$paquet" 2>/dev/null) in
        ii*) ;;
        *) printf '%s\n' "$paquet" ;;
        esac
    done < <(grep -vE '^[[:space:]]*(#|$)' "$1")
}

installer_dependances() { # liste
    local manquants trace=$racine/construction/.apt attente=(-o DPkg::Lock::Timeout=600)
    [ -n "$(paquets_manquants "$1")" ] || return 0
    reserver dependances
    mapfile -t manquants < <(paquets_manquants "$1") # une autre commande a pu les installer
    if [ ${#manquants[@]} -gt 0 ]; then
        dire "Installation de ${#manquants[@]} paquet(s) Debian : ${manquants[*]}"
        if ! avec_points "$trace" en_administrateur apt-get -q "${attente[@]}" update ||
            ! avec_points "$trace" en_administrateur env DEBIAN_FRONTEND=noninteractive \
                apt-get -q "${attente[@]}" install -y --no-install-recommends "${manquants[@]}"; then
            tail -n 15 "$trace" >&2
            echouer "l'installation des paquets Debian a échoué (ci-dessus, la fin de ce qu'a dit apt-get)."
        fi
        rm -f "$trace"
    fi
    liberer
}

# Configure un préréglage et construit ces cibles (toutes, sans cible). Le dossier de construction
# reste réservé à cette commande.
construire() {
    local prereglage=$1 trace=$racine/construction/.configuration-$1
    shift
    reserver "$prereglage"
    dire "Construction (préréglage « $prereglage »)"
    mener env -C "$racine" cmake --preset "$prereglage" >"$trace" 2>&1 || {
        tail -n 20 "$trace" >&2
        echouer "la configuration de la construction a échoué."
    }
    rm -f "$trace"
    NINJA_STATUS='  [%f/%t] ' mener env -C "$racine" \
        cmake --build --preset "$prereglage" ${1:+--target "$@"} ||
        echouer "la construction a échoué."
}
