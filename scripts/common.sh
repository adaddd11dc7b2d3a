# What ./run, ./test and the scripts beside this file share. Sourced by bash; `project` is the project's folder.
set -euo pipefail
project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() { printf '%s\n' "$*" >&2; }
fail() { say "${0##*/}: $*"; exit 1; }

as_root() {
    if [ "$(id -u)" = 0 ]; then "$@"
    elif command -v sudo >/dev/null; then sudo "$@"
    else fail "must install $missing; run this as root, or install sudo"
    fi
}

# Installs those of the packages named that are not there. Costs a few milliseconds where all are.
need() {
    missing=
    local package
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    say "Installing$missing"
    local log=$project/build/install.log
    mkdir -p "$project/build"
    { as_root apt-get -q update &&
        as_root env DEBIAN_FRONTEND=noninteractive apt-get -qy --no-install-recommends install $missing; } >"$log" 2>&1 || { tail -n 20 "$log" >&2; fail "could not install$missing (all of it: build/install.log)"; }
}

packages() { sed -n 's/^\([a-z][^ ]*\) .*/\1/p' "$project/scripts/packages"; }

# build PRESET [TARGET...]: sets up what is missing and builds, silently unless there is much to do or something fails.
build() {
    local preset=$1 folder=$project/build/$1 log=$project/build/$1.log
    shift
    need $(packages)
    [ "$preset" != clang ] || need clang-14
    mkdir -p "$project/build"
    if [ ! -e "$folder/build.ninja" ] || [ "$project/CMakePresets.json" -nt "$folder/build.ninja" ]; then
        say "Configuring build/$preset"
        (cd "$project" && cmake --preset "$preset" && touch "$folder/build.ninja") >"$log" 2>&1 ||
            { cat "$log" >&2; fail "configuring failed"; }
    fi
    say "Building build/$preset"
    ninja -C "$folder" "$@" >"$log" 2>&1 ||
        { grep -v '^\[' "$log" | head -n 80 >&2; fail "the build failed (all of it: build/$preset.log)"; }
}
