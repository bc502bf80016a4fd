#!/usr/bin/env bash
# usage: need.sh PROJECT
# What ./dev does about programs and packages that are there or missing, with a package manager that only
# takes notes; and where it can be called from.
set -euo pipefail
project=$1
work=$(mktemp -d)
trap 'rm -r "$work"' EXIT

mkdir "$work/tools"
# Says that a package is installed if its name does.
cat >"$work/tools/dpkg-query" <<'TOOL'
#!/bin/bash
[[ ${*: -1} != there* ]] || printf installed
TOOL
cat >"$work/tools/apt-get" <<'TOOL'
#!/bin/bash
echo "apt-get ${*: -2}" >>"$NOTES"
exit "${APT_STATUS:-0}"
TOOL
cat >"$work/tools/sudo" <<'TOOL'
#!/bin/bash
echo sudo >>"$NOTES"
"$@"
TOOL
chmod +x "$work"/tools/*

failed=0
# expect WHAT FOUND WANTED
expect() {
    if [[ $2 != "$3" ]]; then
        printf '%s:\n%s\nnot:\n%s\n' "$@" >&2
        failed=1
    fi
}

# needing ROOT WITHOUT ENTRY...: what is said, noted and answered when these are needed by root, or not,
# where one of the tools is not there.
needing() {
    local root=$1 without=$2
    shift 2
    mkdir "$work/path"
    cp "$work"/tools/* "$work/path"
    local tool
    for tool in bash env dirname readlink nproc; do
        ln -s "$(command -v "$tool")" "$work/path/$tool"
    done
    rm -f "$work/path/$without"
    : >"$work/notes"
    # shellcheck disable=SC2016 # it is the inner shell that expands
    NOTES="$work/notes" PATH="$work/path" bash -c '
        project=$1 by_root=$2
        shift 2
        source "$project/dev"
        is_root() { [[ $by_root == yes ]]; }
        need "$@"' need "$project" "$root" "$@" 2>&1 || echo "ends with $?"
    cat "$work/notes"
    rm -r "$work/path"
}

missing="./dev: missing: the program kdr-none, of the package some-tool
./dev: missing: the package some-dev
./dev: install these (the names are Debian's packages) and run this again: apt-get install some-tool some-dev
ends with 1"
some=(bash:bash kdr-none:some-tool there-dev some-dev)

expect "all is there" "$(needing no none bash:bash there-dev)" ""
expect "root" "$(needing yes none "${some[@]}")" "./dev: installing some-tool some-dev
apt-get Dpkg::Use-Pty=0 update
apt-get some-tool some-dev"
expect "a user" "$(needing no none "${some[@]}")" "./dev: installing some-tool some-dev
sudo
apt-get Dpkg::Use-Pty=0 update
sudo
apt-get some-tool some-dev"
expect "a user without sudo" "$(needing no sudo "${some[@]}")" "$missing"
expect "no apt-get" "$(needing yes apt-get "${some[@]}")" "$missing"
expect "no network" "$(APT_STATUS=100 needing yes none "${some[@]}")" "./dev: installing some-tool some-dev
$missing
apt-get Dpkg::Use-Pty=0 update"

# From elsewhere, by its path and through a link.
ln -s "$project/dev" "$work/kdrdata"
cd /
expect "by its path" "$("$project/dev" completion)" "$(cd "$project" && ./dev completion)"
expect "through a link" "$("$work/kdrdata" completion)" "$(cd "$project" && ./dev completion)"

# shellcheck disable=SC2016 # it is the inner shell that expands
say='source "$1/dev"; progress one; progress two; progress ""'
expect "progress in a pipe" "$(bash -c "$say" say "$project" 2>&1)" ""
expect "progress on a terminal" \
    "$(script --quiet --return --command "bash -c '$say' say '$project'" /dev/null </dev/null)" \
    $'\r\e[Kone\r\e[Ktwo\r\e[K'
exit "$failed"
