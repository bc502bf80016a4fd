#!/usr/bin/env bash
# usage: exported_symbols.sh LIBRARY LIST
# The library exports exactly the symbols of the list. After an intended change
# of the interface, ./dev symbols rewrites the lists.
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")

if ! diff -u --label "$(basename "$2")" --label "exported by the library" \
    "$2" <("$here/symbols.sh" "$1"); then
    echo "The exported symbols differ from the list; if that is intended: ./dev symbols" >&2
    exit 1
fi
