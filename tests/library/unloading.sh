#!/usr/bin/env bash
# usage: unloading.sh LIBRARY
# The library registers nothing to be run when it is unloaded or when the process or a thread ends.
set -euo pipefail

undefined=$("$(dirname "${BASH_SOURCE[0]}")/symbols.sh" "$1" --undefined-only)
if grep -xE 'atexit|at_quick_exit|on_exit|__cxa_(thread_)?atexit' <<<"$undefined"; then
    echo "The library refers to the above; look for an object with a destructor that is static" >&2
    exit 1
fi
