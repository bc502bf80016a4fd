#!/usr/bin/env bash
# usage: headers.sh COMPILER STANDARD INCLUDE_DIRECTORY FLAG...
# Every installed header compiles alone, without a warning, under the language standard.
set -euo pipefail
compiler=$1
standard=$2
include=$3
shift 3

compile() {
    "$compiler" -std="$standard" -x c++ -fsyntax-only -fPIC \
        -Wall -Wextra -Wpedantic -Werror -I "$include" "$@" \
        - <<<"#include <$header>"
}

failed=0
count=0
while read -r header; do
    count=$((count + 1))
    compile "$@" || { echo "failed: <$header>" >&2; failed=1; }
done < <(cd "$include" && find kdrdata kdrio veldata -name '*.h' | sort)

echo "$count headers"
((count > 0 && failed == 0))
