#!/usr/bin/env bash
# usage: run.sh BUILD SECONDS JOBS [TARGET...]
# Runs the fuzzers of a build, all of them where none is named, each for so long and so many at a
# time. Tells how often each ran, and fails if one found something.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
build=$1
seconds=$2
jobs=$3
shift 3

# Runs one target; its log is told only where it found something.
run_one() {
    local target=$1 arguments=()
    local fuzzer="$build/fuzz/${target}_fuzz" grown="$build/grown/$target" found="$build/found/$target"
    if [[ ! -x $fuzzer ]]; then
        echo "fuzz/run.sh: there is no target '$target'" >&2
        return 1
    fi
    mkdir -p "$grown" "$found" "$build/logs"
    if [[ -f $here/dictionaries/$target.dict ]]; then
        arguments+=("-dict=$here/dictionaries/$target.dict")
    fi
    local directories=("$grown" "$here/corpus/$target")
    if [[ -d $here/regressions/$target ]]; then
        directories+=("$here/regressions/$target")
    fi
    # Time and memory have wide margins: a machine may be busy, and a file may ask for a gigabyte.
    local log="$build/logs/$target.log"
    if "$fuzzer" "-max_total_time=$seconds" -timeout=120 -rss_limit_mb=4096 -max_len=4096 \
        -print_final_stats=1 "-artifact_prefix=$found/" "${arguments[@]}" "${directories[@]}" \
        >"$log" 2>&1; then
        printf '%-12s %12s executions\n' "$target" \
            "$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")"
    else
        cat "$log" >&2
        echo "fuzz/run.sh: $target found something. Mend it, and keep the input named above in" \
            "fuzz/regressions/$target/ under a name that says what it is" >&2
        return 1
    fi
}

if [[ $# -eq 0 ]]; then
    for corpus in "$here"/corpus/*; do
        set -- "$@" "$(basename "$corpus")"
    done
fi

export -f run_one
export here build seconds
# shellcheck disable=SC2016 # it is the inner shell that expands
printf '%s\0' "$@" | xargs -0 -P "$jobs" -I '{}' bash -euo pipefail -c 'run_one "$1"' run_one '{}'
