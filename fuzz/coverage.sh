#!/usr/bin/env bash
# usage: coverage.sh BUILD
# Replays the seeds and regressions of every target in a build that records coverage, and tells how
# often each reached the functions that entries.txt names for it. Fails where one was not reached,
# and where a target has no entry.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
build=$1
profiles=$build/profiles
rm -rf "$profiles"
mkdir -p "$profiles"

failed=0
printf '%-12s %12s  %s\n' target executions function
for corpus in "$here"/corpus/*; do
    target=$(basename "$corpus")
    program="$build/fuzz/${target}_fuzz"
    LLVM_PROFILE_FILE="$profiles/$target-%m.profraw" \
        "$program" "$corpus" "$here/regressions/$target" >"$profiles/$target.log"
    llvm-profdata merge -o "$profiles/$target.profdata" "$profiles/$target"-*.profraw
    llvm-cov export -format=lcov "-instr-profile=$profiles/$target.profdata" \
        "$program" -object "$build/kdrdata/libKDRData.so" -object "$build/kdrio/libKDRDataIO.so" \
        -object "$build/veldata/libVelData.so" |
        c++filt >"$profiles/$target.lcov"
    # A line is "FNDA:count,file:qualified name(arguments)"; overloads are added up. A name is
    # followed by its arguments and may have a return type or a file in front.
    awk -v target="$target" '
        NR == FNR {
            if ($1 == target)
                reached[$2] = 0
            next
        }
        /^FNDA:/ {
            count = substr($0, 6) + 0
            for (name in reached)
                if (match($0, "[ ,:]" name "[(<]"))
                    reached[name] += count
        }
        END {
            entries = 0
            for (name in reached) {
                printf "%-12s %12d  %s\n", target, reached[name], name | "sort"
                missed += reached[name] == 0
                ++entries
            }
            close("sort")
            exit entries == 0 || missed > 0
        }' "$here/entries.txt" "$profiles/$target.lcov" || failed=1
done
if [[ $failed -ne 0 ]]; then
    echo "fuzz/coverage.sh: a target does not reach what entries.txt names for it, or names" \
        "nothing: give it a seed that does" >&2
    exit 1
fi
