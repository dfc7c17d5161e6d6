# shellcheck shell=sh disable=SC2034,SC2154
# Sourced by run and test: sees to it that the Debian packages named are there.

say() { printf '%s\n' "$*" >&2; }

install_packages() {
    missing=""
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "ok installed" || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    if ! command -v apt-get >/dev/null; then
        say "These packages are missing and there is no apt-get here; install what corresponds to them:$missing"
        exit 1
    fi
    become=""
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            say "These packages are missing; install them as root:  apt-get install$missing"
            exit 1
        fi
        become="sudo"
    fi
    say "Installing:$missing"
    log=$(mktemp)
    # shellcheck disable=SC2086
    if ! { $become apt-get update -q && $become env DEBIAN_FRONTEND=noninteractive \
           apt-get install -q -y --no-install-recommends $missing; } >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        exit 1
    fi
    rm -f "$log"
}

# Configures and builds without a word; what went wrong is shown if something does.
#   build DIRECTORY TARGET CMAKE-ARGUMENT...
build() {
    directory=$1
    target=$2
    shift 2
    log=$(mktemp)
    if ! { cmake -S "$root" -B "$directory" -G Ninja "$@" && cmake --build "$directory" --target "$target"; } \
         >"$log" 2>&1; then
        grep -v '^\[[0-9]*/[0-9]*\] [BL]' "$log" >&2
        rm -f "$log"
        say "The build failed; see above."
        exit 1
    fi
    rm -f "$log"
}

build_packages="cmake g++ ninja-build libcli11-dev nlohmann-json3-dev"
# The windows; and what shows and drives them where nobody sits in front of a screen.
window_packages="libwxgtk3.2-dev libgtk-3-dev"
screen_packages="libxtst-dev xvfb xdotool openbox dbus dbus-x11 x11-utils imagemagick at-spi2-core"
