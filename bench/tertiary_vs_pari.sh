#!/usr/bin/env bash
# Times sw-cli's tertiary range against PARI/GP's forprime in one run and prints both times
# and the ratio: the probable primes of the window [10^100, 10^100 + 10^6] (4,248 of them),
# sw-cli sieving by the primes up to its default cut and testing the candidates by BPSW, gp
# walking forprime over the same window. CPU seconds of the whole program, best of RUNS; both
# sides must agree on the count.
#
#   bench/tertiary_vs_pari.sh [BUILD_DIR]      (default: build/default; build it first)
set -euo pipefail

ROOT=$(cd "$(dirname "$0")/.." && pwd)
BUILD=${1:-$ROOT/build/default}
CLI=$BUILD/bin/sw-cli
[[ -x $CLI ]] || { echo "tertiary_vs_pari: $CLI not found; build it first" >&2; exit 1; }
command -v gp >/dev/null || { echo "tertiary_vs_pari: gp (Debian pari-gp) not found" >&2; exit 1; }
RUNS=${RUNS:-3}
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
export SW_HOME=$WORK

cpu() {  # CPU seconds of a command, best of RUNS; its stdout is kept in $WORK/aus
  local best=""
  for ((r = 0; r < RUNS; r++)); do
    /usr/bin/time -o "$WORK/zeit" -f '%U %S' "$@" >"$WORK/aus" 2>/dev/null
    local t; t=$(awk '{ printf "%.2f", $1 + $2 }' "$WORK/zeit")
    if [[ -z $best ]] || awk -v t="$t" -v b="$best" 'BEGIN { exit !(t < b) }'; then best=$t; fi
  done
  echo "$best"
}

echo 'c = 0; forprime(p = 10^100, 10^100 + 10^6, c++); print(c)' >"$WORK/fenster.gp"
SW=$(cpu "$CLI" tertiary 10^100 1000001 --test bpsw --count)
SWN=$(cat "$WORK/aus")
PA=$(cpu gp -q -f -s 100000000 "$WORK/fenster.gp" </dev/null)
PAN=$(cat "$WORK/aus")
[[ $SWN == "$PAN" ]] || echo "tertiary_vs_pari: the counts differ: sw-cli $SWN, gp $PAN" >&2
printf '%-30s %8s %10s %10s %8s\n' "window" "primes" "sw-cli s" "gp s" "ratio"
printf '%-30s %8s %10s %10s %8s\n' "[10^100, 10^100+10^6]" "$SWN" "$SW" "$PA" \
  "$(awk -v a="$SW" -v b="$PA" 'BEGIN { printf "%.2f", a / b }')"
