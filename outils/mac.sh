# Préparer un Mac simulé et y faire vivre l'assistant. À sourcer après fonctions.sh, `racine` posée,
# `construction` désignant le dossier d'un préréglage construit.
# shellcheck shell=bash

: "${racine:?}"

# Crée le Mac du scénario, s'il n'existe pas encore, et y pose le paquet de l'assistant.
preparer_mac() {
    local scenario=$1 mac=$2 creer_mac=$racine/mac_simule/racine/creer_mac paquet
    if [ -d "$mac/etat" ]; then
        "$creer_mac" --verifier "$mac" || exit 2
    else
        mkdir -p "$(dirname "$mac")" && "$creer_mac" --scenario "$scenario" "$mac" ||
            echouer "le Mac simulé n'a pas pu être créé." 2
    fi
    paquet="$mac/Applications/Assistant Lumivia.app"
    { rm -rf "$paquet" && cp -a "${construction:?}/Assistant Lumivia.app" "$paquet"; } ||
        echouer "l'assistant ne peut pas être posé dans « $mac »."
    # Un scénario peut être celui d'un paquet abîmé.
    if [ -e "$mac/etat/bibliotheque_absente" ]; then
        rm -f "$paquet/Contents/Frameworks/libftd2xx.dylib"
    fi
}

# Garde ce Mac pour cette commande jusqu'à sa fin ; faux quand une autre le fait déjà vivre.
prendre_mac() {
    rendre_mac
    exec {mac_pris}<"$1"
    flock -n "$mac_pris"
}

rendre_mac() {
    [ -z "${mac_pris:-}" ] || exec {mac_pris}<&-
    mac_pris=
}

# Met le Mac et l'environnement en état de démonstration ; les images iront dans ce dossier.
preparer_demonstration() {
    local mac=$1 dossier=$2 reponse=$3
    rm -f "$dossier"/[0-9][0-9]-*.png "$dossier"/{journal,rapport,transcription}.txt
    rm -rf "$mac/etat/demonstration"
    mkdir "$mac/etat/demonstration"
    if [ "$reponse" = non ]; then
        printf 'Tester avec votre projecteur\tNon\n' >>"$mac/etat/gestes"
    fi
    # Rien ne doit s'ouvrir sur l'écran de la personne qui regarde ailleurs.
    unset DISPLAY WAYLAND_DISPLAY
    export QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES='*.warning=false'
    export LUMIVIA_DEMONSTRATION=$dossier
}

# L'assistant sous son lanceur, le banc à côté ; rend le statut du lanceur. Ce qui suit le Mac est
# une commande qui lance le lanceur, pour l'observer. À mener : une interruption les emporte.
faire_vivre() {
    local mac=$1 banc statut=0
    shift
    # Sans le verrou du Mac : ce que Qt laisserait derrière lui le garderait.
    rendre_mac
    # Sans session, Qt s'en ferait une sous /tmp, et l'y laisserait.
    [ -n "${XDG_RUNTIME_DIR:-}" ] || export XDG_RUNTIME_DIR=${temporaire:?}
    # Pour la personne qui regarde : le banc à droite de l'écran, sur cette largeur en points, et un
    # redémarrage qui dure assez, en secondes, pour se voir.
    [ -n "${LUMIVIA_DEMONSTRATION:-}" ] ||
        export LUMIVIA_PLACE_DU_BANC=480 LUMIVIA_REDEMARRAGE=1.5
    "$racine/mac_simule/banc/banc" "$mac" &
    banc=$!
    # Dans une démonstration, Qt met le robot dans l'assistant ; le banc n'en a pas.
    if [ -n "${LUMIVIA_DEMONSTRATION:-}" ]; then
        QT_PLUGIN_PATH=$(realpath "$construction")/mac_simule/robot${QT_PLUGIN_PATH:+:$QT_PLUGIN_PATH}
        LUMIVIA_GESTES=$(sed '/^#/d' "$racine/mac_simule/robot/demonstration.gestes")
        export QT_QPA_GENERIC_PLUGINS=robot QT_PLUGIN_PATH LUMIVIA_GESTES
    fi
    "$@" "$racine/mac_simule/racine/lanceur" "$mac" || statut=$?
    kill "$banc" 2>/dev/null || true # il a pu être fermé avant
    wait "$banc" 2>/dev/null || true
    return "$statut"
}
