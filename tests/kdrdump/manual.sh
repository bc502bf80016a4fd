#!/usr/bin/env bash
# usage: manual.sh MANUAL KDRDUMP
# The manual is written without a mistake and names every option that the program has.
set -euo pipefail
manual=$1
program=$2
said=$(LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings --encoding=UTF-8 --local-file "$manual" \
    2>&1 >/dev/null)
if [[ -n $said ]]; then
    printf '%s\n' "$said" >&2
    exit 1
fi
text=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --encoding=ascii --local-file "$manual" | sed $'s/.\b//g')
options=$("$program" --help | grep --only-matching -e '--[a-z]*' | sort --unique)
for option in $options; do
    # Qt's own, which is for all programs alike.
    [[ $option == --help-all ]] && continue
    if [[ $text != *"$option"* ]]; then
        echo "the manual does not name $option" >&2
        exit 1
    fi
done
[[ $(wc -w <<<"$options") -ge 6 ]]
