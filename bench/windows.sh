#!/usr/bin/env bash
# Measures the program with windows from outside, on a screen without a monitor: the start, an idle window, memory, and
# a run of 100,000 log lines beside the console's.
#
#   bench/windows.sh [--idle SECONDS] [--lines N] [WORK-FOLDER]
#
# TIDVANE_BUILD names another build directory than build/release. About two minutes.
set -euo pipefail

here=$(cd "$(dirname "$0")/.." && pwd)
build=${TIDVANE_BUILD:-$here/build/release}
console=$build/src/tidvane-console
windows=$build/src/tidvane
paint=${TIDVANE_FIRST_PAINT:-$build/bench/tidvane-first-paint}
idle=60
lines=100000
work=
while [ $# -gt 0 ]; do
  case $1 in
    --idle) idle=$2; shift 2 ;;
    --lines) lines=$2; shift 2 ;;
    *) work=$1; shift ;;
  esac
done
for program in "$console" "$windows" "$paint"; do
  [ -x "$program" ] || { echo "$program is missing; build the release preset first: cmake --preset release && cmake --build --preset release" >&2; exit 2; }
done
[ -n "$work" ] || work=$(mktemp -d /var/tmp/tidvane-bench.XXXXXX)

server='' manager='' program=''
finish() {
  for process in $program $manager $server; do kill "$process" 2>/dev/null || true; done
  [ -z "$server" ] || wait "$server" 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT
mkdir -p "$work"
Xvfb -displayfd 3 -screen 0 1600x1200x24 -nolisten tcp -noreset 3>"$work/display" 2>/dev/null &
server=$!
until [ -s "$work/display" ]; do sleep 0.1; done
DISPLAY=:$(cat "$work/display")
export DISPLAY HOME="$work" GSETTINGS_BACKEND=memory GTK_THEME=Adwaita NO_AT_BRIDGE=1
export DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent
openbox --startup "touch '$work/ready'" >/dev/null 2>&1 &
manager=$!
until [ -e "$work/ready" ]; do sleep 0.1; done

line() { printf '%-52s %12s %12s\n' "$1" "$2" "$3"; }
line "measured" "is" "limit"

"$console" --program "$work/program" machine create "$work/machine" --sample >/dev/null 2>&1
on_machine() { "$console" --machine "$work/machine" --program "$work/program" "$@"; }
on_machine settings --set txtPurgeSpeed=0 --save >/dev/null 2>&1
printf '#2009-11-02#\r\n#07:05:09#\r\n' >"$work/program/td_last.dat"  # no start page
leave() { kill "$program"; while kill -0 "$program" 2>/dev/null; do sleep 0.1; done; program=; }

# --- the start: the first makes the files of the program folder and warms the cache
starts=() costs=()
for ((i = 0; i < 6; ++i)); do
  read -r took cost program <<<"$("$paint" "$windows" --machine "$work/machine" --program "$work/program" 2>/dev/null)"
  [ "$i" = 0 ] || { starts+=("$took"); costs+=("$cost"); }
  sleep 0.7
  [ "$i" = 5 ] || leave
done
median() { printf '%s\n' "$@" | sort -g | awk '{v[NR] = $1} END {print v[int((NR + 1) / 2)]}'; }
line "from exec to the first painting, median of 5" "$(median "${starts[@]}") ms" "300 ms"
line "processor time of that" "$(median "${costs[@]}") ms" "-"

# --- idle
sleep 2
ticks() { awk '{print $14 + $15}' "/proc/$1/stat"; }
before=$(ticks "$program")
sleep "$idle"
after=$(ticks "$program")
line "an idle window over $idle s, of one core" \
  "$(awk -v t=$((after - before)) -v hz="$(getconf CLK_TCK)" -v s="$idle" 'BEGIN {printf "%.2f %%", 100 * t / hz / s}')" "0.2 %"
memory() { awk -v what="$1:" '$1 == what {printf "%.1f MiB", $2 / 1024}' "/proc/$program/smaps_rollup"; }
line "memory of its own and its share of what is common" "$(memory Pss)" "80 MiB"
line "memory with all that is common (resident)" "$(memory Rss)" "-"
leave

# --- many lines: the sweep by masks tells one for each folder that it finds something in
many=$work/machine/drive_c/many
fill() {
  mkdir -p "$many"
  (cd "$many" && seq 1 "$lines" | awk '{print "g" $1 % 300 "/folder" $1}' | xargs mkdir -p &&
    seq 1 "$lines" | awk '{print "g" $1 % 300 "/folder" $1 "/bench.trace"}' | xargs touch)
}
left() { find "$many" -name bench.trace -print -quit 2>/dev/null; }
seconds() { awk -v a="$1" -v b="$2" 'BEGIN {printf "%.2f", (b - a) / 1e9}'; }
on_machine lists add masks bench.trace --answer yes >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
on_machine settings --set chkSearchTasks=1 --save >/dev/null 2>&1
fill
a=$(date +%s%N)
on_machine run --answer yes --force >"$work/log" 2>&1 || true
b=$(date +%s%N)
beside=$(seconds "$a" "$b")
[ -z "$(left)" ] || { echo "the console has not cleaned; see its log:"; tail -n 5 "$work/log"; exit 1; }
fill
read -r _ _ program <<<"$("$paint" "$windows" --machine "$work/machine" --program "$work/program" 2>/dev/null)"
sleep 1
touch "$work/before"
a=$(date +%s%N)
xdotool key F9
# A run writes down that it was at its end. Looking for what is left would cost as much as the run.
while [ ! "$work/program/td_last.dat" -nt "$work/before" ]; do
  sleep 0.05
  [ $(($(date +%s%N) - a)) -lt 120000000000 ] || { echo "the windows have not cleaned"; exit 1; }
done
b=$(date +%s%N)
[ -z "$(left)" ] || { echo "the windows have not cleaned"; exit 1; }
ours=$(seconds "$a" "$b")
line "$lines lines in the console" "$beside s" "-"
line "the same with the window open" "$ours s" "-"
line "ratio" "$(awk -v a="$ours" -v b="$beside" 'BEGIN {printf "%.2f", a / b}')" "1.5"
line "memory behind it" "$(memory Pss)" "80 MiB"
leave
