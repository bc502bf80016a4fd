#!/usr/bin/env bash
# usage: packages.sh DIRECTORY_OF_PACKAGES
# The Debian packages break no rule of the distribution, and what they lay down is all that a
# program needs: unpacked beside the system, they are found, linked and run.
set -euo pipefail
packages=$1
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

lintian --fail-on error "$packages"/*.deb

unpacked=$(mktemp --directory)
trap 'rm -rf "$unpacked"' EXIT
for package in "$packages"/*.deb; do
    dpkg-deb --extract "$package" "$unpacked/tree"
done
cmake -S "$here/find_package" -B "$unpacked/build" "-DCMAKE_PREFIX_PATH=$unpacked/tree/usr"
# The loader does not look into this root, and the packaged libraries carry no paths.
libraries=$(dirname "$(find "$unpacked/tree" -name 'libKDRData.so')")
LD_LIBRARY_PATH=$libraries cmake --build "$unpacked/build"
LD_LIBRARY_PATH=$libraries "$unpacked/build/consumer"

# The program, of a package of its own, shows a value, and its manual is where man looks for it.
shown=$(LD_LIBRARY_PATH=$libraries "$unpacked/tree/usr/bin/kdrdump" "$here/../kdrio/files/v1/number.kdr")
[[ $shown == *"     1  value               7 "* ]]
test -f "$packages"/kdrdata-tools_*.deb
test -f "$unpacked/tree/usr/share/man/man1/kdrdump.1.gz"

test -f "$unpacked/tree/usr/share/doc/libkdrdata-doc/html/index.html"

# GDB looks for the printers under the library's own path.
library=$(find "$unpacked/tree/usr/lib" -name 'libKDRData.so.*.*')
test -f "$unpacked/tree/usr/share/gdb/auto-load${library#"$unpacked/tree"}-gdb.py"
