# shellcheck shell=bash
# Pour les essais qui mènent une démonstration, à lire en premier ; leur premier paramètre est la
# construction. Le dossier temporaire de l'essai a un nom plein d'espaces et d'accents.
racine=$(CDPATH='' cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
construction=$1
# shellcheck source=outils/fonctions.sh
. "$racine/outils/fonctions.sh"
# shellcheck source=outils/mac.sh
. "$racine/outils/mac.sh"

ouvrir_temporaire "un essai été"
essai=$temporaire
mkdir "$essai/images"

# Mène la démonstration de ce scénario dans ce Mac, et échoue quand elle ne va pas au bout.
demontrer() { # scenario réponse mac [commande devant l'assistant]
    preparer_mac "$1" "$3"
    preparer_demonstration "$3" "$essai/images" "$2"
    mener faire_vivre "${@:3}" || {
        cat "$3/Users"/*/"Library/Logs/Assistant Lumivia.log" >&2 || true
        echouer "la démonstration de « $1 » n'est pas allée au bout."
    }
}

# Ce qu'une personne y a rencontré, sur la sortie. Les dates passent, le reste se compare.
rencontrer() {
    local texte
    cat "$essai/images/transcription.txt"
    for texte in journal rapport; do
        printf '== %s\n' "$texte"
        sed -E 's/^\[[-0-9]{10} [0-9:]{8}\]/[date]/; s/(sauvegarde)-[0-9]{8}-[0-9]{6}/\1-DATE/' \
            "$essai/images/$texte.txt"
    done
}
