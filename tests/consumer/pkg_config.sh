#!/usr/bin/env bash
# usage: pkg_config.sh COMPILER SOURCE BINARY
# Compiles, links and runs a program with the flags that pkg-config gives and no others.
set -euo pipefail

read -ra cflags <<<"$("${PKG_CONFIG:-pkg-config}" --cflags kdrdata)"
read -ra libs <<<"$("${PKG_CONFIG:-pkg-config}" --libs kdrdata)"
"$1" -std=c++11 "${cflags[@]}" "$2" -o "$3" "${libs[@]}"

LD_LIBRARY_PATH=$("${PKG_CONFIG:-pkg-config}" --variable=libdir kdrdata) "$3"
