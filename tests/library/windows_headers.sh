#!/usr/bin/env bash
# usage: windows_headers.sh COMPILER INCLUDE_DIRECTORY SOURCE FLAG...
# The installed headers serve a compiler for Windows: each compiles alone, and a program that uses
# them imports every operation from the library and defines none itself.
set -euo pipefail
compiler=$1
include=$2
source=$3
shift 3

"$(dirname "${BASH_SOURCE[0]}")/headers.sh" "$compiler" c++11 "$include" "$@"

object=$(mktemp --suffix=.o)
trap 'rm -f "$object"' EXIT
"$compiler" -std=c++11 -I "$include" "$@" -c "$source" -o "$object"
symbols=$(nm "$object")
if ! grep -q ' U __imp_.*KDR' <<<"$symbols" || grep -E ' (U|T|W) _Z[^ ]*KDR' <<<"$symbols"; then
    echo "these are not imported from the library" >&2
    exit 1
fi
