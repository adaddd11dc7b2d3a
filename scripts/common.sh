# What ./run, ./test and the scripts beside this file share. Sourced by bash; `project` is the project's folder.
set -euo pipefail
project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() { printf '%s\n' "$*" >&2; }
fail() { say "${0##*/}: $*"; exit 1; }

# Installs those of the packages named that are not there. A system without dpkg has its own names for them; there the
# build says what it does not find.
need() {
    command -v dpkg-query >/dev/null || return 0
    local installed missing root= log=$project/build/install.log
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
        sed -n 's/^installed //p') || true
    missing=$(printf '%s\n' "$@" | grep -vxF -e "$installed" | tr '\n' ' ') || return 0
    [ "$(id -u)" = 0 ] || root=sudo
    [ -z "$root" ] || command -v sudo >/dev/null || fail "install these, or run this as root or with sudo: $missing"
    say "Installing $missing"
    mkdir -p "$project/build"
    install_packages $missing >"$log" 2>&1 || { tail -n 20 "$log" >&2; fail "could not install $missing"; }
}

install_packages() {
    $root apt-get -q update &&
        $root env DEBIAN_FRONTEND=noninteractive apt-get -qy --no-install-recommends install "$@"
}

packages() { sed -n 's/^\([a-z][^ ]*\) .*/\1/p' "$project/scripts/packages"; }

# build PRESET [TARGET...]: sets up what is missing and builds, silently unless there is much to do or something fails.
build() {
    local preset=$1 folder=$project/build/$1 log=$project/build/$1.log
    shift
    need $(packages)
    case "$preset" in clang | fuzz) need clang-14 ;; esac
    [ "$preset" != fuzz ] || need libclang-rt-14-dev
    mkdir -p "$project/build"
    if [ ! -e "$folder/build.ninja" ] || [ "$project/CMakePresets.json" -nt "$folder/build.ninja" ]; then
        say "Configuring build/$preset"
        (cd "$project" && cmake --preset "$preset" && touch "$folder/build.ninja") >"$log" 2>&1 ||
            { cat "$log" >&2; fail "configuring failed"; }
    fi
    say "Building build/$preset"
    ninja -C "$folder" "$@" >"$log" 2>&1 ||
        { complaints "$log" >&2; fail "the build failed (all of it: build/$preset.log)"; }
}

# What a failed build says, without the steps that went well and the commands' long lines.
complaints() { grep -vE '^(\[|-- |ninja: Entering|/[^ ]*/(ccache|c\+\+) )' "$1" | head -n 80; }
