#!/usr/bin/env bash
# usage: symbols.sh LIBRARY [--undefined-only]
# Prints what a shared library exports (or takes from others), demangled and sorted, one symbol a
# line. The variants that a compiler makes of one constructor or destructor count as one.
set -euo pipefail
export LC_ALL=C

nm --dynamic "${2:---defined-only}" --demangle --without-symbol-versions "$1" |
    sed -nE 's/^[0-9a-f ]{16} [B-Zb-z] //p' | # kind A is not a symbol but the name of the version
    sort -u
