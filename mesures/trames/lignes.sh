# Les lignes des trames DMX : la session de l'assistant, la boucle nue, et leurs relevés. À sourcer
# après tableau.sh, `programmes` désignant les programmes de mesure construits.
# shellcheck shell=bash

: "${travail:?}" "${programmes:?}" "${construction:?}"

# Trames : la session de l'assistant et la boucle nue, l'une après l'autre, chacune son relevé.
relever() { # Mac, nom du relevé, commande…
    LUMIVIA_MAC=$travail/$1 LUMIVIA_RELEVE_DMX=$travail/$2.dmx "${@:3}" ||
        echouer "le relevé « $2 » n'est pas allé au bout."
}
chiffre() { sed -n "s/^$2=//p" "$travail/$1.chiffres"; }

mesurer_trames() {
    local secondes i nom
    secondes=$(tours 15 60)
    : >"$travail/changements-fautifs"
    for i in 1 2 3; do
        relever pret "assistant-$i" "$programmes/trames/mesure_session" "$secondes" \
            >"$travail/changements-$i"
        "$programmes/trames/verifier_changements" "$travail/assistant-$i.dmx" \
            "$travail/changements-$i" >>"$travail/changements-fautifs"
        relever pret "ideal-$i" "$programmes/releve/boucle_ideale" \
            "$construction/mac_simule/d2xx/libftd2xx.dylib" "$secondes"
        for nom in assistant ideal; do
            "$programmes/releve/lire_releve" --cles "$travail/$nom-$i.dmx" \
                >"$travail/$nom-$i.chiffres"
        done
    done
    echo realiste >"$travail/pret/etat/puce_dmx"
    relever pret realiste "$programmes/trames/mesure_session" "$secondes" >"$travail/changements-4"
    "$programmes/trames/verifier_changements" "$travail/realiste.dmx" "$travail/changements-4" \
        >>"$travail/changements-fautifs"
    "$programmes/releve/lire_releve" --cles "$travail/realiste.dmx" >"$travail/realiste.chiffres"
    echo immediat >"$travail/pret/etat/puce_dmx"
    "$programmes/releve/lire_releve" --cles "$travail"/assistant-[123].dmx \
        >"$travail/assistant.chiffres"
    lignes_trames
}

ligne_trames() { # libellé, clé, unité, signe, borne
    local i
    for i in 1 2 3; do
        echo "$(chiffre "assistant-$i" "$2") $(chiffre "ideal-$i" "$2")"
    done | awk '{ print $1, $2, $1 / $2 }' >"$travail/trames"
    ligne_rapport "$1" "$travail/trames" 1 "$3" 3 "$4" "$5"
}

lignes_trames() {
    ligne_trames "Trames par seconde / boucle nue en C" trames_par_seconde "/s" ≥ 0.99
    ligne_trames "Période des trames, p99 / boucle nue" periode_p99_us µs ≤ 1.10
    ligne_trames "Calcul par trame / boucle nue" calcul_fil_us µs ≤ 1.5
    ligne_valeur "BREAK le plus court" "$(chiffre assistant break_min_us)" 0 " µs" — ≥ 200
    ligne_valeur "Trames coupées, puce immédiate et puce réaliste" \
        "$(($(chiffre assistant trames_coupees) + $(chiffre realiste trames_coupees)))" 0 '' — = 0
    ligne_valeur "Trames perdues à un changement de motif" \
        "$(awk '{ s += $1 } END { print s }' "$travail/changements-fautifs")" 0 '' — = 0
    ligne_valeur "Trames répétées à un changement de motif" \
        "$(awk '{ s += $2 } END { print s }' "$travail/changements-fautifs")" 0 '' — = 0
    ligne_valeur "Allocations de mémoire pendant l'envoi" \
        "$(awk '/^allocations/ { s += $2 } END { print s }' "$travail"/changements-[1-4])" 0 '' — = 0
    ligne_valeur "Trames par seconde, puce réaliste" "$(chiffre realiste trames_par_seconde)" 1 /s — ≥ ''
}

# Pour situer les trames : relevé sur une machine virtuelle de deux cœurs, puce immédiate.
logiciels_connus() {
    cat <<'FIN'
Pour situer les trames, deux logiciels lumière connus, mesurés avec la même puce immédiate sur une
machine virtuelle de deux cœurs, trois fois trente secondes :

| | trames/s | période moyenne / p99 | écart-type | BREAK min / médian | trames coupées | calcul par trame |
|---|---|---|---|---|---|---|
| leurs 30 Hz d'origine | 29,8 | 33,6 / 34,1 ms | 306–329 µs | 147–178 / 196–200 µs | 0 | 850–896 µs |
| l'un d'eux à son maximum, 44 Hz | 42,6 | 23,5 / 24,1 ms | 315 µs | 128 / 196 µs | 11 sur 3791 | 613 µs |
FIN
    [ ! -s "$travail/assistant.chiffres" ] || printf '| %s | %s | %s / %s ms | %s µs | %s / %s µs | %s | %s µs |\n' \
        "l'assistant, dans ce passage" \
        "$(nombre "$(chiffre assistant trames_par_seconde)" 1)" \
        "$(nombre "$(chiffre assistant periode_moyenne_us)e-3" 1)" \
        "$(nombre "$(chiffre assistant periode_p99_us)e-3" 1)" \
        "$(chiffre assistant periode_ecart_type_us)" \
        "$(chiffre assistant break_min_us)" "$(chiffre assistant break_p50_us)" \
        "$(chiffre assistant trames_coupees)" \
        "$(nombre "$(chiffre assistant calcul_fil_us)" 0)"
}
