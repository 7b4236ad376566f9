# Sourced by ./dorvik, ./test and the tools: installs what is missing and configures a build.
# shellcheck shell=bash

# The Debian packages that a build needs; docs/dependencies.md gives the reason for each.
readonly kBuildPackages=(
    g++ cmake ninja-build pkg-config
    libsqlite3-dev libpcre2-dev libxml2-dev libxslt1-dev rapidjson-dev libcli11-dev
)
# What the desktop program needs on top.
readonly kDesktopPackages=(qt6-base-dev libqscintilla2-qt6-dev)
# What the tests need on top.
readonly kTestPackages=(
    xvfb openbox fonts-dejavu-core
    libgtest-dev libgmock-dev ccache mold python3
    clang-format-14 clang-tidy-14 universal-ctags
    chromium chromium-driver python3-selenium
)
# What the benchmarks measure against; a build works without.
readonly kBenchPackages=(cloc universal-ctags liblua5.4-dev)

# Objects that ccache holds serve every checkout of the project, wherever it is.
export CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=1

# True when every package named is installed.
packages_installed() {
    local package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || return 1
    done
}

# Installs the packages named that are missing, as root or through sudo; otherwise prints the one
# line to run and ends the script.
require_packages() {
    packages_installed "$@" && return 0
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! sudo -n true 2>/dev/null; then
            printf 'Some packages are missing. Run this line, then try again:\n  sudo apt-get install -y %s\n' "$*" >&2
            exit 2
        fi
        as_root=(sudo)
    fi
    printf 'Installing missing packages ...\n' >&2
    local log attempt
    log=$(mktemp)
    for attempt in 1 2 3; do
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -q >>"$log" 2>&1 || true
        if "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q "$@" >>"$log" 2>&1; then
            rm -f "$log"
            return 0
        fi
        sleep $((attempt * 5))
    done
    tail -n 20 "$log" >&2
    printf 'The packages could not be installed: %s\n' "$*" >&2
    exit 2
}

# Makes the desktop program part of the preset "release"; needs the packages for it.
configure_desktop() {
    require_packages "${kDesktopPackages[@]}"
    if ! grep -qs '^DORVIK_DESKTOP:BOOL=ON$' build/release/CMakeCache.txt; then
        cmake --preset release -D DORVIK_DESKTOP=ON >/dev/null
    fi
}

# build PRESET TARGET...: configures the preset when that has not been done, and builds the targets.
build() {
    local preset=$1 log
    shift
    log=$(mktemp)
    if [ ! -f "build/$preset/build.ninja" ]; then
        cmake --preset "$preset" >"$log" 2>&1 || { cat "$log" >&2; exit 2; }
    fi
    if [ -t 2 ] || [ "${CI:-}" = true ]; then
        cmake --build --preset "$preset" --target "$@" 1>&2 || exit 2
    else
        cmake --build --preset "$preset" --target "$@" >"$log" 2>&1 || { cat "$log" >&2; exit 2; }
    fi
    rm -f "$log"
}
