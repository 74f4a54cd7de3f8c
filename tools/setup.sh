# shellcheck shell=bash disable=SC1090,SC2015,SC2034
# What run, test and dev share: the packages that the project needs, their installation, and the
# calls of CMake. Sourced, never run. All paths hang on the folder above this file.

velmora_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# The one list of Debian packages, by what needs them.
build_packages=(cmake ninja-build g++ ccache qt6-base-dev libsdl2-dev libxss-dev
    fonts-liberation fonts-dejavu-core)
screen_packages=(xvfb openbox xdotool python3)
test_packages=("${screen_packages[@]}" libgtest-dev libgmock-dev x11-utils
    x11-xserver-utils imagemagick clang-format dbus-daemon)
bench_packages=(libbenchmark-dev)
tidy_packages=(clang-tidy)
fuzz_packages=(clang libclang-rt-dev)

say() { printf '%s\n' "$*" >&2; }

fail() {
    say "velmora: $*"
    exit 1
}

# require_system [FILE]: stops with a sentence on a system for which the package list is not made.
# FILE is the system's own description of itself. A Debian without a number is testing or unstable.
require_system() {
    local file=${1:-/etc/os-release} id like version oldest name
    [ -r "$file" ] || fail "This set-up is made for Debian 12 or newer and Ubuntu 24.04 or newer;" \
        "$file, which would name this system, cannot be read."
    id=$(. "$file" && printf %s "${ID:-}")
    like=$(. "$file" && printf %s "${ID_LIKE:-}")
    version=$(. "$file" && printf %s "${VERSION_ID:-}")
    name=$(. "$file" && printf %s "${PRETTY_NAME:-${ID:-unnamed}}")
    case $id in
    debian) oldest=12 ;;
    ubuntu) oldest=24.04 ;;
    *)
        case " $like " in
        *" debian "* | *" ubuntu "*)
            say "velmora: $name is not among the systems that this set-up is tried on;" \
                "it goes on with the packages' Debian names."
            return 0
            ;;
        esac
        fail "This set-up is made for Debian 12 or newer and Ubuntu 24.04 or newer, and this is" \
            "$name. Install a C++20 compiler, CMake 3.25, Ninja, ccache, Qt 6.4 and GoogleTest by" \
            "its own means, then build with:" \
            "cmake --preset release && cmake --build --preset release"
        ;;
    esac
    if [ -n "$version" ] &&
        [ "$(printf '%s\n%s\n' "$oldest" "$version" | sort -V | head -n 1)" != "$oldest" ]; then
        fail "$name is too old: it has no Qt 6.4 and CMake 3.25." \
            "Debian 12 or newer, or Ubuntu 24.04 or newer, is needed."
    fi
}

# missing_packages PACKAGE...: those that are not installed, on one line.
missing_packages() {
    local package missing=()
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
            missing+=("$package")
    done
    printf %s "${missing[*]}"
}

# install_packages PACKAGE...: installs what is missing. Asks for rights only if something is, and
# where it has none it prints the command for somebody who has.
install_packages() {
    local missing command=() root=()
    command -v dpkg-query >/dev/null && command -v apt-get >/dev/null ||
        fail "dpkg-query and apt-get are needed to set up the packages: $*"
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0
    read -ra missing <<<"$missing"
    command=(apt-get install -y --no-install-recommends "${missing[@]}")
    say "velmora: missing packages: ${missing[*]}"
    if [ "$(id -u)" != 0 ]; then
        # sudo may ask for a password only where somebody can type one.
        if command -v sudo >/dev/null && { sudo -n true 2>/dev/null || [ -t 0 ]; }; then
            root=(sudo)
        else
            fail "No rights to install them here. As root, run this and try again:
    apt-get update && ${command[*]}"
        fi
    fi
    "${root[@]}" apt-get update >&2 &&
        "${root[@]}" env DEBIAN_FRONTEND=noninteractive "${command[@]}" >&2 ||
        fail "The packages could not be installed. When the cause is mended, this is the command:
    ${root[*]:+${root[*]} }apt-get update && ${root[*]:+${root[*]} }${command[*]}"
}

# build PRESET [-DNAME=VALUE...] [TARGET...]: configures, with the values on top of the preset's, and
# builds; all targets if none is named.
build() {
    local preset=$1 values=() log
    shift
    while [[ ${1:-} == -D* ]]; do
        values+=("$1")
        shift
    done
    log=$velmora_root/build/configure-$preset.log
    (
        cd "$velmora_root" || exit 1
        cmake --preset "$preset" "${values[@]}" >"$log" 2>&1 || {
            cat "$log"
            exit 1
        }
        cmake --build --preset "$preset" ${1:+--target "$@"}
    ) >&2 || fail "The build of the preset $preset failed."
}
