#!/usr/bin/env bash
# usage: core_seam.sh LIBRARY DOCUMENT
# What the library takes from the core data library is what the document's table lists: the first
# cell of each row, in backticks.
set -euo pipefail
export LC_ALL=C

if ! diff -u --label "listed in $(basename "$2")" --label "used by the library" \
    <(# shellcheck disable=SC2016 # the backticks are the document's
      sed -nE 's/^\| `([^`]+)` \|.*/\1/p' "$2" | sort -u) \
    <("$(dirname "${BASH_SOURCE[0]}")/symbols.sh" "$1" --undefined-only | grep -E '(^| )Vel'); then
    echo "The list of core operations and the use of them differ" >&2
    exit 1
fi
