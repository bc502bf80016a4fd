#!/usr/bin/env bash
# usage: io_needs.sh LIBRARY OBJECT...
# The library of saved values needs the data library and of Qt Core alone, and nothing that lies
# behind them; loading it runs no initialiser of its own.
set -euo pipefail
library=$1
shift

needed=$(readelf --dynamic --wide "$library" |
    sed -nE 's/.*\(NEEDED\).*\[(lib[^.]*)\.so.*\]$/\1/p' |
    grep -vE '^lib(stdc\+\+|gcc_s|m|c)$' | sort | xargs)
if [[ $needed != "libKDRData libQt5Core" ]]; then
    echo "the library needs: $needed" >&2
    exit 1
fi

for object in "$@"; do
    sections=$(readelf --section-headers --wide "$object")
    if grep -E ' \.(preinit_array|init_array|ctors)' <<<"$sections"; then
        echo "$object has an initialiser" >&2
        exit 1
    fi
done
