#!/usr/bin/env bash
# usage: exported_symbols.sh LIBRARY
# The library exports exactly the symbols of the list beside this script. After an intended change
# of the interface, ./dev symbols rewrites the list.
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")

if ! diff -u --label "exported_symbols.txt" --label "exported by the library" \
    "$here/exported_symbols.txt" <("$here/symbols.sh" "$1"); then
    echo "The exported symbols differ from the list; if that is intended: ./dev symbols" >&2
    exit 1
fi
