#!/usr/bin/env bash
# Times the probabilistic twin search (method 3: tertiary sieve, pruning, BPSW) over the window
# at 10^50 in which about 25 twins are to be expected, the length the twin window's button
# sets: 25 ln^2(10^50) / (2 C2) = 250,972 numbers (ln t hardly moves over the window). PARI/GP
# walks the same window as reference (forprime with ispseudoprime of p + 2). Both must find the
# same number of twins. Wall seconds, best of RUNS; the sw side includes its raster of 10^7.
#
#   bench/twins_10e50.sh [BUILD_DIR]      (default: build/default; build it first)
set -euo pipefail

ROOT=$(cd "$(dirname "$0")/.." && pwd)
BUILD=$(cd "${1:-$ROOT/build/default}" && pwd)
CLI=$BUILD/bin/sw-cli
[[ -x $CLI ]] || { echo "twins_10e50: $CLI not found; build it first" >&2; exit 1; }
RUNS=${RUNS:-3}
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
export SW_HOME=$WORK
cd "$WORK"

LAENGE=$(awk 'BEGIN { l = 50 * log(10); printf "%d", 25 * l * l / (2 * 0.6601618158468696) + 1 }')

beste() {  # wall seconds of a command, best of RUNS; its output of the last run in $WORK/aus
  local best=""
  for ((r = 0; r < RUNS; r++)); do
    local t0 t1 t
    t0=$(date +%s.%N)
    "$@" >"$WORK/aus" 2>/dev/null
    t1=$(date +%s.%N)
    t=$(awk -v a="$t0" -v b="$t1" 'BEGIN { printf "%.3f", b - a }')
    if [[ -z $best ]] || awk -v t="$t" -v b="$best" 'BEGIN { exit !(t < b) }'; then best=$t; fi
  done
  echo "$best"
}

SW=$(beste "$CLI" twins "10^50" "10^50+$LAENGE" --method 3 --test bpsw)
SWN=$(tail -1 "$WORK/aus" | awk '{ print $1 }')
printf '%-28s %10s %8s\n' "window 10^50 + $LAENGE" "seconds" "twins"
printf '%-28s %10s %8s\n' "sw-cli twins --method 3" "$SW" "$SWN"
if command -v gp >/dev/null; then
  gpzwillinge() {
    echo "a = 10^50; c = 0; forprime(p = a, a + $LAENGE - 2, if(ispseudoprime(p + 2), c++)); print(c)" | gp -q -f -s 100000000
  }
  GP=$(beste gpzwillinge)
  GPN=$(cat "$WORK/aus")
  printf '%-28s %10s %8s\n' "PARI/GP forprime" "$GP" "$GPN"
  [[ $SWN == "$GPN" ]] || echo "twins_10e50: the counts differ" >&2
fi
