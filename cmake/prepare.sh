# shellcheck shell=bash
# Sourced by ./run and ./test, with the working directory at the top of the tree: what they do first.

# The names in packages.txt, and the packages that bring the tools.
needed_packages() {
    sed -e 's/#.*//' -e '/^[[:space:]]*$/d' packages.txt
    grep -v '^#' tools/tools.txt | cut -d '|' -f 2 | tr -d ' ' | sed '/^$/d' | sort -u
}

# Those of the packages that are not installed, one a line.
missing_packages() {
    needed_packages | sort -u | comm -23 - <(installed_packages)
}

installed_packages() {
    needed_packages | xargs dpkg-query -W -f='${db:Status-Status} ${Package}\n' 2>/dev/null |
        sed -n 's/^installed //p' | sort -u
}

# as_root COMMAND...
as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo -- "$@"
    else
        echo "These packages have to be installed by root first:" >&2
        missing_packages | sed 's/^/    /' >&2
        return 1
    fi
}

# Installs what packages.txt and tools.txt name; quick where all of it is there.
install_packages() {
    if ! command -v dpkg-query >/dev/null; then
        echo "Not a Debian system: taking what packages.txt names as installed." >&2
        return 0
    fi
    local missing
    mapfile -t missing < <(missing_packages)
    [ "${#missing[@]}" -gt 0 ] || return 0
    echo "Installing ${missing[*]}" >&2
    as_root env DEBIAN_FRONTEND=noninteractive apt-get update -qq
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET...]: configures and builds into build/PRESET; everything where no target is named.
build() {
    local preset=$1
    shift
    cmake --preset "$preset"
    cmake --build --preset "$preset" ${1:+--target "$@"}
}
