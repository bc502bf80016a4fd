#!/usr/bin/env bash
# usage: loaded.sh LIBRARY NAME...
# The library loads the libraries whose names begin with NAME, those of the compiler and the system,
# and what these load in turn: no others, and not fewer.
set -euo pipefail
shopt -s inherit_errexit
library=$1
shift

# The file names of what a library loads, one a line; the kernel's object has no file.
loaded_by() {
    ldd "$1" | sed -nE 's/^\s*(\S+ => )?(\/\S+) \(0x[0-9a-f]+\)$/\2/p' | sort -u
}

all=$(loaded_by "$library")
allowed=
for name in "$@"; do
    file=$(grep -E "/$name\.so[.0-9]*$" <<<"$all" || true)
    if [[ -z $file || $file == *$'\n'* ]]; then
        echo "$library should load one $name, and loads: ${file:-none}" >&2
        exit 1
    fi
    allowed+=$file$'\n'$(loaded_by "$file")$'\n'
done
for name in libstdc++ libgcc_s libm libc "ld-linux[-a-z0-9]*"; do
    allowed+=$(grep -E "/${name//+/\\+}\.so[.0-9]*$" <<<"$all" || true)$'\n'
done

excess=$(comm -23 <(sort -u <<<"$all") <(sort -u <<<"$allowed"))
if [[ -n $excess ]]; then
    echo "$library also loads:" >&2
    echo "$excess" >&2
    exit 1
fi
