#!/bin/sh
# fill.sh DIRECTORY [NAME=PROGRAM...]
# Puts a link for every packaged tool into the tools directory, under the name that the program calls, and one for each
# companion given. Nothing that stands there is replaced but the links that an earlier run placed. A package that is
# missing is no failure: the program tells about it, and a later run fills the gap. tools.txt names them all.
set -eu

directory=$1
shift
placed=$directory/.placed # a line for each link of ours: its name and where it points to, a tab between

table=$(dirname -- "$0")/tools.txt

# packaged_tools: the name in the directory, then the program that its Debian package brings, a line each.
packaged_tools() {
    grep -v '^#' "$table" | while IFS='| ' read -r name _ program _; do
        [ -z "$program" ] || echo "$name $program"
    done
}

tab=$(printf '\t')

# is_ours NAME: the link is as an earlier run left it.
is_ours() {
    [ -L "$directory/$1" ] && [ -f "$placed" ] &&
        grep -qxF -- "$1$tab$(readlink -- "$directory/$1")" "$placed"
}

# place NAME PROGRAM: PROGRAM is empty where there is none.
place() {
    link=$directory/$1
    if is_ours "$1"; then
        [ "$(readlink -- "$link")" = "$2" ] || rm -f -- "$link"
    elif [ -e "$link" ] || [ -L "$link" ]; then
        return 0
    fi
    [ -n "$2" ] || return 0
    [ -L "$link" ] || ln -s -- "$2" "$link"
    printf '%s\t%s\n' "$1" "$2" >>"$placed.new"
}

mkdir -p -- "$directory"
: >"$placed.new"
for companion in "$@"; do
    place "${companion%%=*}" "${companion#*=}"
done
while read -r name program; do
    place "$name" "$(PATH=/usr/local/bin:/usr/bin:/bin command -v "$program" || true)"
done <<EOF
$(packaged_tools)
EOF
mv -f -- "$placed.new" "$placed"
