#!/usr/bin/env bash
# usage: tree.sh GDB DIRECTORY_OF_THE_LIBRARY PROGRAM CORE_FILE
# A graphical front end shows the elements of an array as a tree without being asked to.
set -euo pipefail
gdb=$1
directory=$2
program=$3
core=$4

answers=$("$gdb" -nx -nh -quiet --interpreter=mi2 \
    -iex "add-auto-load-safe-path $directory" -iex "set debuginfod enabled off" \
    "$program" "$core" <<'COMMANDS'
-enable-pretty-printing
-var-create array * values.arrayVariant
-var-list-children --all-values array 0 10
-var-list-children --all-values array.[4] 0 10
-gdb-exit
COMMANDS
)

failed=0
expect() {
    grep --fixed-strings --quiet -e "$1" <<<"$answers" || { echo "missing: $1" >&2; failed=1; }
}
expect 'name="array",numchild="0",value="{...}",type="KDRVariant"'
expect 'numchild="5"'
expect 'child={name="array.[0]",exp="[0]",numchild="0",value="number 5 (int)",type="KDRVariant"'
expect 'child={name="array.[4].[1]",exp="[1]",numchild="0",value="2.5 (double)",type="KDRNumber"'
((failed == 0)) || { echo "$answers" >&2; exit 1; }
