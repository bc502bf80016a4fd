#!/usr/bin/env bash
# usage: static_initialisers.sh LIBRARY OBJECT...
# Loading the library runs exactly one initialiser of its own: that of the log sink.
set -euo pipefail
shopt -s inherit_errexit
library=$1
shift

offenders=$(
    for object in "$@"; do
        sections=$(readelf --section-headers --wide "$object")
        if grep -qE ' \.(preinit_array|init_array|ctors)' <<<"$sections"; then
            basename "$object"
        fi
    done
)
if [[ $offenders != logoutput.cpp.o ]]; then
    echo "objects with static initialisers, where only logoutput.cpp.o may have one:" >&2
    echo "${offenders:-none}" >&2
    exit 1
fi

# The linked library has that one and the compiler's own, which every shared library has.
size=$(readelf --section-headers --wide "$library" |
    sed -nE 's/.* \.init_array +INIT_ARRAY +[0-9a-f]+ [0-9a-f]+ ([0-9a-f]+) .*/\1/p')
if ((16#${size:-0} != 2 * 8)); then
    echo "the library's .init_array has 0x${size:-0} bytes; two entries have 0x10" >&2
    exit 1
fi
