#!/usr/bin/env bash
# Puts the product's operations beside the tools of the system that do the same, on one file system, with a warm cache:
# five pairs each, the median of either side, and their ratio.
#
#   bench/side_by_side.sh [--scale N] [--only NAME] [WORK-FOLDER]
#
# --scale 10 makes every tree ten times smaller. The work folder (default: a new one below /var/tmp) needs about 3 GB.
set -euo pipefail

here=$(cd "$(dirname "$0")/.." && pwd)
build=${TIDVANE_BUILD:-$here/build/release}
measure=$build/bench/tidvane-measure
console=$build/src/tidvane-console
scale=1
only=
pairs=5
work=
while [ $# -gt 0 ]; do
  case $1 in
    --scale) scale=$2; shift 2 ;;
    --only) only=$2; shift 2 ;;
    --pairs) pairs=$2; shift 2 ;;
    *) work=$1; shift ;;
  esac
done
[ -x "$measure" ] && [ -x "$console" ] || { echo "build the release preset first: cmake --preset release && cmake --build --preset release" >&2; exit 2; }
if [ -z "$work" ]; then work=$(mktemp -d /var/tmp/tidvane-bench.XXXXXX); trap 'rm -rf "$work"' EXIT; fi

machine=$work/machine
rm -rf "$machine"
"$console" machine create "$machine" > /dev/null
c=$machine/drive_c
program=$work/program
mkdir -p "$program"
cp "$here/data/English.lng" "$here/data/td_ban.dat" "$program"
# Without a pause between the lines of the start.
"$console" --machine "$machine" --program "$program" settings --set txtPurgeSpeed=0 --save > /dev/null

now() { date +%s%N; }
# Milliseconds of a command of the system.
timed() { local a b; a=$(now); "$@" > /dev/null; b=$(now); echo "$(( (b - a) / 1000 )) " | awk '{printf "%.3f\n", $1 / 1000}'; }
median() { sort -g | awk '{v[NR] = $1} END {print v[int((NR + 1) / 2)]}'; }


# A tree of FILES files in FOLDERS folders (in groups of 100), below a folder that does not exist yet.
make_tree() {
  local at=$1 folders=$2 each=$3 i
  mkdir -p "$at"
  seq 1 "$folders" | awk -v at="$at" '{printf "%s/g%d/folder%d\n", at, $1 % 100, $1}' | xargs mkdir -p
  find "$at" -mindepth 2 -maxdepth 2 -type d | while read -r d; do
    (cd "$d" && eval "touch document{1..$each}.txt")
  done
}
make_flat() { mkdir -p "$1"; (cd "$1" && seq 1 "$2" | awk '{print "file" $1 ".dat"}' | xargs touch); }

printf '%-44s %12s %12s %7s %7s %9s\n' "operation" "tidvane ms" "system ms" "ratio" "limit" "peak KiB"

# row NAME LIMIT PREPARE-FUNCTION TIDVANE-COMMAND... -- SYSTEM-COMMAND...
row() {
  local name=$1 limit=$2 prepare=$3; shift 3
  local ours=() theirs=()
  while [ "$1" != -- ]; do ours+=("$1"); shift; done
  shift
  theirs=("$@")
  [ -z "$only" ] || [[ $name == *$only* ]] || return 0
  local a=() b=() peak=0 i out
  for ((i = 0; i < pairs; ++i)); do
    $prepare; sync
    out=$("${ours[@]}" 2> /dev/null)
    a+=("${out%% *}")
    [ "${out##* }" -gt "$peak" ] && peak=${out##* }
    $prepare; sync
    b+=("$(timed "${theirs[@]}")")
  done
  local x y
  x=$(printf '%s\n' "${a[@]}" | median)
  y=$(printf '%s\n' "${b[@]}" | median)
  printf '%-44s %12.1f %12.1f %7.2f %7s %9s\n' "$name" "$x" "$y" "$(awk -v x="$x" -v y="$y" 'BEGIN {print x / y}')" "$limit" "$peak"
}

folders=$((1000 / scale)); [ "$folders" -gt 0 ] || folders=1
flat=$((100000 / scale))
wide=$((50000 / scale))
mib=$((1024 / scale))

tree() { rm -rf "$c/tree"; make_tree "$c/tree" "$folders" 100; find "$c/tree" > /dev/null; }
row "DelAll, 100,000 files in 1,000 folders" 1.05 tree "$measure" "$machine" delall 'C:\tree' -- rm -rf "$c/tree"
rm -rf "$c/tree"

flat() { rm -rf "$c/flat"; make_flat "$c/flat" "$flat"; find "$c/flat" > /dev/null; }
row "PurgeFolder, 100,000 files in one folder" 1.25 flat "$measure" "$machine" purge 'C:\flat' -- rm -rf "$c/flat"
rm -rf "$c/flat"

if [ -z "$only" ] || [[ "FolderStats" == *$only* ]]; then tree; du -s "$c/tree" > /dev/null; fi
same() { :; }
row "FolderStats, 100,000 files in 1,000 folders" 1.10 same "$measure" "$machine" stats 'C:\tree' -- du -s "$c/tree"
rm -rf "$c/tree"

if [ -z "$only" ] || [[ "SweepFolderByMasks" == *$only* ]]; then
  make_tree "$c/wide" "$wide" 20; find "$c/wide" -type d > /dev/null
fi
row "SweepFolderByMasks, 49 masks, 1,000,000 files" 1.50 same "$measure" "$machine" sweep 'C:\wide' -- find "$c/wide" -type d
rm -rf "$c/wide"

big() { [ "$(stat -c %s "$c/big" 2> /dev/null)" = $((mib * 1048576)) ] || dd if=/dev/zero of="$c/big" bs=1M count="$mib" status=none; cat "$c/big" > /dev/null; }
row "overwrite, 1 GiB" 1.20 big "$measure" "$machine" overwrite 'C:\big' -- dd if=/dev/zero of="$c/big" bs=4096 count=$((mib * 256)) conv=notrunc status=none
rm -f "$c/big"

# A preview walks what a removal would walk, and removes nothing: it stands beside du.
own=("$console" --machine "$machine" --program "$program")
in_console() { echo "$(timed "${own[@]}" "$@") 0"; }
if [ -z "$only" ] || [[ "preview" == *$only* ]]; then
  make_tree "$c/tree" "$folders" 100
  "${own[@]}" lists add folders 'C:\tree' > /dev/null 2>&1
  rm -rf "$c/windows/temp/tree" "$c/Windows/Temp/tree"
  make_tree "$c/Windows/Temp/tree" "$folders" 100
  find "$c/tree" "$c/Windows/Temp/tree" > /dev/null
fi
row "preview of an own folder, 100,000 files" 1.50 same in_console run --preview --tick chkActivateOwnFolder -- du -s "$c/tree"
row "preview of the temp folder, 100,000 files" 1.50 same in_console run --preview --tick chkTempFolder -- du -s "$c/Windows/Temp/tree"
rm -rf "$c/tree" "$c/Windows/Temp/tree"
"${own[@]}" lists remove folders 'C:\tree' > /dev/null 2>&1 || true

# Whole commands, no other side to put beside them. Each is prepared by a command that is not timed.
whole() {
  local name=$1 limit=$2; shift 2
  [ -z "$only" ] || [[ $name == *$only* ]] || return 0
  local a=() i
  for ((i = 0; i < pairs; ++i)); do $before_each; a+=("$(timed "$@" 2> /dev/null)"); done
  printf '%-44s %12.1f %12s %7s %7s\n' "$name" "$(printf '%s\n' "${a[@]}" | median)" "-" "-" "$limit"
}
before_each=:
whole "tidvane-console tasks" "50 ms" "$console" --machine "$machine" --program "$program" tasks
whole "a run with nothing ticked, no pause" "50 ms" "$console" --machine "$machine" --program "$program" run

# 200 plug-ins of which none finds anything: the time of the last step alone, as the report of the run tells it.
plug_in_pass() {
  local limit="200 ms" i
  local report=$work/report.json
  [ -z "$only" ] || [[ "plug-ins" == *$only* ]] || return 0
  mkdir -p "$program/PlugIns"
  rm -f "$program"/PlugIns/*
  printf '[PlugIns]\r\n' > "$program/td_apps.ini"
  for ((i = 1; i <= 200; ++i)); do
    {
      printf '[Info]\r\nTitle=Plug-in %d\r\nDescription=Nichts\r\nDescription2=Nothing\r\n[VARIABLES]\r\n' "$i"
      printf 'TDV_PLACE=%%APPDATA%%\\Nobody %d\r\n[REGISTRY]\r\n1=HKEY_CURRENT_USER|Software\\Nobody|%d\r\n' "$i" "$i"
      printf '[FILES]\r\n1=DEL_FILE|%%TDV_PLACE%%\\*.log\r\n2=CLEAR_FOLDER|%%TDV_PLACE%%\\cache\r\n'
      printf '3=DEL_FOLDER|%%TDV_PLACE%%\\dumps\r\n4=DEL_FILE|%%TDV_PLACE%%\\one.dat\r\n'
    } > "$program/PlugIns/nobody$i.tdp"
    printf 'nobody%d=1\r\n' "$i" >> "$program/td_apps.ini"
  done
  local a=()
  for ((i = 0; i < pairs; ++i)); do
    "${own[@]}" run --quiet --json "$report" > /dev/null 2>&1
    a+=("$(tr -d ' \n' < "$report" | sed 's/.*"steps"://' | grep -o '"milliseconds":[0-9.e-]*' | tail -n 1 | cut -d: -f2)")
  done
  printf '%-44s %12.1f %12s %7s %7s\n' "200 plug-ins that find nothing" "$(printf '%s\n' "${a[@]}" | median)" "-" "-" "$limit"
  rm -f "$program"/PlugIns/* "$program/td_apps.ini"
}
plug_in_pass

# The whole walk over a sample machine with all of its traces, made anew for each run.
sample=$work/sample
make_sample() {
  rm -rf "$sample" "$work/sample-program"
  "$console" --program "$work/sample-program" machine create "$sample" --sample > /dev/null 2>&1
  "$console" --machine "$sample" --program "$work/sample-program" settings --set txtPurgeSpeed=0 --save > /dev/null 2>&1
  sync
}
before_each=make_sample
whole "everything ticked on the sample machine" "500 ms" "$console" --machine "$sample" --program "$work/sample-program" run --tick all --answer yes --force
before_each=:
