#!/usr/bin/env bash
# usage: dependencies.sh LIBRARY
# Of Qt the library needs Core alone, and it needs the core data library but nothing that lies
# behind it.
set -euo pipefail

needed=$(readelf --dynamic --wide "$1" | sed -nE 's/.*\(NEEDED\).*\[(.*)\]$/\1/p')
qt=$(grep '^libQt' <<<"$needed" || true)
if [[ $qt != libQt5Core.so.5 ]] || ! grep -q '^libVelData\.so' <<<"$needed" ||
    grep -qE '^lib(opencv|png|jpeg|tiff)' <<<"$needed"; then
    echo "the library needs, where of these only Qt's Core and VelData are allowed:" >&2
    echo "$needed" >&2
    exit 1
fi
