#!/bin/sh
# Référence : les outils qu'une analyse lance, l'un après l'autre, autant de fois que demandé.
# Usage : outils.sh TOURS RACINE
tours=$1
racine=$2
while [ "$tours" -gt 0 ]; do
    "$racine/usr/sbin/sysctl" -n hw.optional.arm64
    "$racine/usr/sbin/sysctl" -n hw.model
    "$racine/usr/bin/kmutil" inspect
    "$racine/usr/bin/systemextensionsctl" list
    tours=$((tours - 1))
done >/dev/null 2>&1
