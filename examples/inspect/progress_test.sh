#!/usr/bin/env bash
# usage: progress_test.sh INSPECT PICTURE
# On a terminal the program tells what it is doing and takes that away again; in a pipe it is silent.
set -euo pipefail
inspect=$1
picture=$2
work=$(mktemp -d)
trap 'rm -r "$work"' EXIT
cd "$work"

failed=0
# expect WHAT FOUND WANTED
expect() {
    if [[ $2 != "$3" ]]; then
        printf '%s: %q, not %q\n' "$@" >&2
        failed=1
    fi
}

# on_terminal WORD...: what the program writes to a terminal, its report being sent elsewhere.
on_terminal() {
    local line
    line=$(printf '%q ' "$inspect" "$@")
    script --quiet --return --command "$line >report.txt" /dev/null </dev/null || true
}

# lines OF STEP...: what is shown while the steps go on, each in the place of the one before.
lines() {
    local all=$1 number=0 step
    shift
    for step in "$@"; do
        number=$((number + 1))
        printf '\r\033[K%d of %d: %s' "$number" "$all" "$step"
    done
    printf '\r\033[K'
}

expect "a picture" "$(on_terminal "$picture")" "$(lines 10 "reading the picture" \
    "taking the ground away" "proposing parameters" "telling parts from ground" "finding parts" \
    "fitting figures" measuring "converting figures" drawing packing)"
expect "a part" "$(on_terminal --drawn-part)" "$(lines 6 "planning the part" "drawing it" \
    "following edges" measuring "drawing figures" packing)"
expect "a failure" "$(on_terminal nothing.png)" \
    "$(lines 10 "reading the picture")$("$inspect" nothing.png 2>&1 || true)"$'\r'
expect "in a pipe" "$("$inspect" "$picture" 2>&1 >report.txt)" ""
exit "$failed"
