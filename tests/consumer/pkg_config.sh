#!/usr/bin/env bash
# usage: pkg_config.sh COMPILER SOURCE BINARY PACKAGE
# Compiles, links and runs a program with the flags that pkg-config gives and, since the prefix is
# none that the loader knows, the path of the library in the program: the line that the README shows.
set -euo pipefail

pkg_config=${PKG_CONFIG:-pkg-config}
# pkg-config escapes blanks in paths for a shell.
flags=$("$pkg_config" --cflags --libs "$4")
libdir=$("$pkg_config" --variable=libdir "$4")
eval "flags=($flags) libdir=$libdir"
"$1" -std=c++11 "$2" -o "$3" "${flags[@]}" "-Wl,-rpath,$libdir"

env -u LD_LIBRARY_PATH "$3"
