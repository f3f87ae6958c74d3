#!/bin/sh
# Référence : les outils qu'une analyse lance, l'un après l'autre, autant de fois que demandé.
# Usage : outils.sh TOURS RACINE [lire]
# Avec « lire », le shell retient ce que chacun affiche, comme l'analyse ; sans, rien n'est lu.
tours=$1
racine=$2
lire=${3:-}

outil() {
    if [ -n "$lire" ]; then
        # shellcheck disable=SC2034 # retenue pour elle-même
        affiche=$("$@" 2>&1)
    else
        "$@"
    fi
}

while [ "$tours" -gt 0 ]; do
    outil "$racine/usr/sbin/sysctl" -n hw.optional.arm64
    outil "$racine/usr/sbin/sysctl" -n hw.model
    outil "$racine/usr/bin/kmutil" inspect
    outil "$racine/usr/bin/systemextensionsctl" list
    tours=$((tours - 1))
done >/dev/null 2>&1
