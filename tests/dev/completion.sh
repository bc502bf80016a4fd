#!/usr/bin/env bash
# usage: completion.sh PROJECT
# What bash is told to complete for ./dev: every command that it takes, and the words behind some.
set -euo pipefail
cd "$1"

# shellcheck disable=SC1090 # what it prints is what is tried
source <(./dev completion)

failed=0
# expect WORD... -- COMPLETION...: what is offered behind the words, the last of which is begun.
expect() {
    COMP_WORDS=(./dev)
    while [[ $1 != -- ]]; do
        COMP_WORDS+=("$1")
        shift
    done
    shift
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    COMPREPLY=()
    _kdrdata_dev
    if [[ "${COMPREPLY[*]}" != "$*" ]]; then
        echo "behind '${COMP_WORDS[*]}': '${COMPREPLY[*]}', not '$*'" >&2
        failed=1
    fi
}

expect de -- demo
expect bench --r -- --report
expect abi "" -- --accept
expect demo "" --
expect fuzz jp -- jpeg
expect nothing "" --

# Each command that the help tells is one that ./dev takes, and the other way round.
# shellcheck disable=SC2016 # it is sed that reads the dollar
taken=$(sed -n '/^case \$command in/,/^esac/s/^    \([a-z][a-z]*\)[ )].*/\1/p' dev | sort)
COMP_WORDS=(./dev "")
COMP_CWORD=1
_kdrdata_dev
offered=$(printf '%s\n' "${COMPREPLY[@]}" | sort)
if [[ -z $taken || $taken != "$offered" ]]; then
    echo "taken: ${taken//$'\n'/ }; offered: ${offered//$'\n'/ }" >&2
    failed=1
fi
exit "$failed"
