#!/usr/bin/env bash
# usage: check.sh BUILD [--accept]
# Compares the binary interface of the built libraries with the committed dumps, and tells every
# difference. With --accept it writes the dumps anew. The build needs debug information.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
build=$1
mode=${2:-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# dump LIBRARY FILE: writes the interface without anything that tells where it was built. It is made
# of the types of the library's own public headers; those of others and of private headers stay out.
dump() {
    local directory
    directory=$(basename "$(dirname "$1")")
    cat >"$work/own_types.ini" <<SUPPRESSIONS
[suppress_type]
  name_regexp = ^(Q[A-Za-z]|Qt\$|std::|__gnu|__cxx)
  drop = yes

[suppress_type]
  source_location_not_regexp = $directory/([a-z0-9]+/)*[a-z0-9]+\.h\$
  drop = yes
SUPPRESSIONS
    abidw --suppressions "$work/own_types.ini" --exported-interfaces-only --drop-undefined-syms \
        --no-architecture --no-comp-dir-path --no-corpus-path --no-elf-needed --no-parameter-names \
        --no-show-locs --no-write-default-sizes --type-id-style sequence \
        --out-file "$2" "$1"
    sed -i -E "s,^( *<abi-instr .*)path='[^']*(kdrdata|kdrio|veldata)/,\1path='\2/," "$2"
}

changed=0
for library in kdrdata/libKDRData kdrio/libKDRDataIO veldata/libVelData; do
    name=$(basename "$library")
    dump "$build/$library.so" "$work/new.abi"
    if [[ $mode == --accept ]]; then
        gzip -9 -n -c "$work/new.abi" >"$here/$name.abi.gz"
        continue
    fi
    gzip -d -c "$here/$name.abi.gz" >"$work/old.abi"
    status=0
    abidiff "$work/old.abi" "$work/new.abi" >"$work/report" || status=$?
    # 4 stands for a change, 8 for one that surely breaks callers; the rest are abidiff's own errors.
    if [[ $((status & ~12)) -ne 0 ]]; then
        echo "abidiff failed with status $status" >&2
        exit 1
    fi
    if [[ $status -ne 0 ]]; then
        echo "The binary interface of $name has changed:"
        cat "$work/report"
        changed=1
    fi
done
if [[ $changed -ne 0 ]]; then
    echo "If this is meant, see docs/abi-policy.md for what it does to the version, and accept it:"
    echo "    ./dev abi --accept"
    exit 1
fi
