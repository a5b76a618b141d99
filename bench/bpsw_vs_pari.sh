#!/usr/bin/env bash
# Times sw-cli's BPSW against PARI/GP's ispseudoprime in one run and prints the ratios: on
# 2^9689 - 1 (a Mersenne prime of 2,917 digits, both halves of the test run) and on a random
# odd 5,000-digit number free of factors below 50 that gp draws with a fixed seed (composite:
# the strong test to base 2 decides). CPU seconds, best of RUNS; the sw
# side has sw-cli's start (timed on "test 7") taken off.
#
#   bench/bpsw_vs_pari.sh [BUILD_DIR]      (default: build/default; build it first)
set -euo pipefail

ROOT=$(cd "$(dirname "$0")/.." && pwd)
BUILD=${1:-$ROOT/build/default}
CLI=$BUILD/bin/sw-cli
[[ -x $CLI ]] || { echo "bpsw_vs_pari: $CLI not found; build it first" >&2; exit 1; }
command -v gp >/dev/null || { echo "bpsw_vs_pari: gp (Debian pari-gp) not found" >&2; exit 1; }
RUNS=${RUNS:-3}
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
export SW_HOME=$WORK

# The random number, written as digits for both sides.
echo 'setrand(1); n = 10^4999 + random(10^4999); n += 1 - n % 2; while(gcd(n, prod(i = 2, 15, prime(i))) > 1, n += 2); write("'"$WORK"'/n5000", n)' | gp -q -f >/dev/null

cpu() {  # CPU seconds of a command, best of RUNS
  local best=""
  for ((r = 0; r < RUNS; r++)); do
    /usr/bin/time -o "$WORK/zeit" -f '%U %S' "$@" >/dev/null 2>&1
    local t; t=$(awk '{ print $1 + $2 }' "$WORK/zeit")
    if [[ -z $best ]] || awk -v t="$t" -v b="$best" 'BEGIN { exit !(t < b) }'; then best=$t; fi
  done
  echo "$best"
}
pari() {  # seconds of one ispseudoprime in gp, best of RUNS, timed inside gp
  gp -q -f -s 100000000 <<GP
n = $1; b = 10^9; for(i = 1, $RUNS, t = getabstime(); ispseudoprime(n); b = min(b, getabstime() - t)); printf("%.3f\n", b / 1000.)
GP
}

START=$(cpu "$CLI" test 7 --limit 0)
printf '%-14s %10s %10s %8s\n' "number" "sw-cli s" "gp s" "ratio"
for fall in "2^9689-1" "n5000"; do
  if [[ $fall == n5000 ]]; then ZAHL=$(cat "$WORK/n5000"); GP="read(\"$WORK/n5000\")"; else ZAHL=$fall; GP=$fall; fi
  [[ $("$CLI" test "$ZAHL" --method bpsw --limit 0 --json) == *'"verdict":"'"$([[ $fall == n5000 ]] && echo composite || echo probable prime)"'"'* ]] ||
    echo "$fall: unexpected verdict" >&2
  SW=$(cpu "$CLI" test "$ZAHL" --method bpsw --limit 0)
  SW=$(awk -v a="$SW" -v b="$START" 'BEGIN { d = a - b; printf "%.3f", (d < 0.001 ? 0.001 : d) }')
  PA=$(pari "$GP")
  printf '%-14s %10s %10s %8s\n' "$fall" "$SW" "$PA" "$(awk -v a="$SW" -v b="$PA" 'BEGIN { printf "%.2f", a / b }')"
done
