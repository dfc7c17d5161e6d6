#!/usr/bin/env bash
# Makes the pictures of the windows in docs/images, at 100% and on a sample machine that is made anew.
#
#   scripts/screenshots.sh [--build DIRECTORY] [NAME...]
#
# Without names all of them. The build directory (default build/debug) has to hold tidvane, tidvane-console and
# show_window. Needs Xvfb, openbox, xdotool and ImageMagick, as the tests do.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build=$root/build/debug
if [ "${1:-}" = --build ]; then
    build=$(cd "$2" && pwd)
    shift 2
fi
wanted=" $* "
out=$root/docs/images
mkdir -p "$out"

# Name of the picture, language, form, and what show_window is told besides: pages, and "run" for a run before it.
pictures='
main                  English frmMain            run
main-german           German  frmMain            run
plug-ins              English frmMain            SSTab1=1
about                 English frmMain            SSTab1=3
options               English frmOptions
options-german        German  frmOptions
options-browsers      English frmOptions         SSTab1=1
options-office        English frmOptions         SSTab1=2
options-own-folders   English frmOptions         SSTab1=3
options-masks         English frmOptions         SSTab1=3 SSTab3=2
options-further       English frmOptions         SSTab1=4
options-settings      English frmOptions         SSTab1=5
options-log           English frmOptions         SSTab1=5 SSTab4=1
options-safety        English frmOptions         SSTab1=5 SSTab4=3
results               English frmDiskSizeStats   run
search                English frmManualSearch
masks                 English frmSearchMasks
plug-in               English frmPlugsInfo       mnuPlugInfo
cache                 English frmIECache
cookies               English frmIECookies
age                   English frmTempAge
internet-explorer     English frmIEInDepthClean
firefox-folders       English frmMozillaDir
extended-settings     English frmMoreToConfigure
start-page            English frmStarter
addresses             English frmResources
widget                English frmWidget
'

# What a run cleans in the pictures.
ticks='chkActivateOwnFolder chkRecentDocuments chkRunList chkTempFolder chkUserTemp chkPrefetchFolder chkLastSaveOpen chkTrash chkIECache chkEnableEnglishPlugsDesc'

work=$(mktemp -d "${TMPDIR:-/tmp}/tidvane-pictures-XXXXXX")
server='' manager='' shown=''
finish() {
    for process in $shown $manager $server; do kill "$process" 2>/dev/null || true; done
    rm -rf "$work"
}
trap finish EXIT

Xvfb -displayfd 3 -screen 0 1600x1200x24 -nolisten tcp -noreset 3>"$work/display" 2>/dev/null &
server=$!
until [ -s "$work/display" ]; do sleep 0.1; done
DISPLAY=:$(cat "$work/display")
# Nobody's own settings in a picture.
export DISPLAY HOME="$work" GSETTINGS_BACKEND=memory GTK_THEME=Adwaita GDK_SCALE=1 NO_AT_BRIDGE=1
export DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent
openbox --startup "touch '$work/ready'" >/dev/null 2>&1 &
manager=$!
until [ -e "$work/ready" ]; do sleep 0.1; done

sample() { # a machine and a program folder in this language
    rm -rf "$work/machine" "$work/program"
    "$build/src/tidvane-console" --program "$work/program" machine create "$work/machine" --sample >/dev/null 2>&1
    # shellcheck disable=SC2046,SC2086
    "$build/src/tidvane-console" --machine "$work/machine" --program "$work/program" settings \
        $(printf -- '--set %s=1 ' $ticks) --set txtPurgeSpeed=0 --set chkDisksizeInfo=0 --save >/dev/null 2>&1
    # No start page, as behind the first start.
    printf '#2009-11-02#\r\n#07:05:09#\r\n' >"$work/program/td_last.dat"
    [ "$1" = English ] || { rm "$work"/program/*.lng; cp "$root"/data/languages/*"($1).lng" "$work/program"; }
}

picture() { # NAME: of the smaller one where the main window lies behind it
    local window
    window=$(for window in $(xdotool search --onlyvisible --pid "$shown"); do
        xdotool getwindowgeometry --shell "$window" | awk -F= -v id="$window" \
            '$1 == "WIDTH" {w = $2} $1 == "HEIGHT" {h = $2} END {if (w > 60) print w * h, id}'
    done | sort -n | awk 'NR == 1 {print $2}')
    import -window "$window" "$work/$1.png"
    convert "$work/$1.png" -strip -define png:compression-level=9 -define png:compression-filter=5 "$out/$1.png"
    printf '%s: %s\n' "$1" "$(identify -format '%wx%h, %b' "$out/$1.png")"
}

printf '%s\n' "$pictures" | while read -r name language form arguments; do
    [ -n "$name" ] || continue
    [ "$wanted" = "  " ] || [[ $wanted == *" $name "* ]] || continue
    sample "$language"
    # shellcheck disable=SC2086
    "$build/tests/show_window" "$work/machine" "$work/program" "$form" $arguments >"$work/output" 2>&1 &
    shown=$!
    for _ in $(seq 1 100); do
        grep -q '^shown' "$work/output" && break
        sleep 0.1
    done
    sleep 0.4
    xdotool mousemove 1599 1199
    picture "$name"
    kill "$shown"
    wait "$shown" 2>/dev/null || true
    shown=
done
