#!/usr/bin/env bash
# Times sw-cli gaps against primesieve's twin count (single thread) in one run and prints the
# ratios. Neighbour gaps over a built raster to 2e9: the raster is built once and saved as a
# block file; its loading is timed apart (gaps 2 3) and taken off, so that only the walk counts.
# Neighbour gaps over [1e15, 1e15+1e9] as a secondary range, sieve included. Both runs are also
# compared by their twin counts (the bar of the difference 2).
#
#   bench/gaps_vs_primesieve.sh [BUILD_DIR]   (default: build/default; build it first)
#
# Targets: at most 2x primesieve 2e9 -c2 for the raster walk, at most 3x primesieve 1e15 -d 1e9
# -c2 for the secondary range.
set -euo pipefail

NAME=gaps_vs_primesieve
source "$(dirname "$0")/vergleich.sh"
export SW_HOME=$WORK

RUNS=${RUNS:-3}
echo "$(primesieve --version | head -1 | cut -d, -f1), sw-cli $("$CLI" --version | awk '{print $NF}'), runs: best of $RUNS"
printf '%-38s %10s %10s %8s %8s\n' "range" "sw-cli s" "primes. s" "ratio" "target"

# The bar of the difference 2: the first number of the line "2 COUNT".
zwillinge() { "$@" | awk '$1 == 2 { print $2; exit }'; }

BLK=$WORK/P209.BLK
"$CLI" sieve 2000000000 --save "$BLK" >/dev/null
SW=$(zwillinge "$CLI" gaps 2 2000000000 --block "$BLK" --gaps 2 200)
PS=$(primesieve 2000000000 -t1 -c2 -q)
[[ $SW == "$PS" ]] || { echo "twins to 2e9 differ: sw-cli $SW, primesieve $PS" >&2; exit 1; }
VOLL=$(best "$RUNS" "$CLI" gaps 2 2000000000 --block "$BLK" --gaps 2 200)
LADEN=$(best "$RUNS" "$CLI" gaps 2 3 --block "$BLK")
T=$(awk -v a="$VOLL" -v b="$LADEN" 'BEGIN { printf "%.3f", a - b }')
P=$(best "$RUNS" primesieve 2000000000 -t1 -c2 -q)
printf '%-38s %10s %10s %8s %8s\n' "[2, 2e9] raster walk ($SW twins)" "$T" "$P" "$(ratio "$T" "$P")" "2"
echo "(sw-cli: $VOLL s with the block file, $LADEN s of it loading the file)"

FROM=1000000000000000
TO=1000001000000000
SW=$(zwillinge "$CLI" gaps "$FROM" "$TO" --gaps 2 200)
PS=$(primesieve "$FROM" -d 1000000000 -t1 -c2 -q)
[[ $SW == "$PS" ]] || { echo "twins in [1e15, 1e15+1e9] differ: sw-cli $SW, primesieve $PS" >&2; exit 1; }
T=$(best "$RUNS" "$CLI" gaps "$FROM" "$TO" --gaps 2 200)
P=$(best "$RUNS" primesieve "$FROM" -d 1000000000 -t1 -c2 -q)
printf '%-38s %10s %10s %8s %8s\n' "[1e15, 1e15+1e9] sieve included" "$T" "$P" "$(ratio "$T" "$P")" "3"
