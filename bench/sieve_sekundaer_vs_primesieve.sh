#!/usr/bin/env bash
# Times sw-cli's secondary sieve against primesieve (single thread) in one run and prints the
# ratios: counting [1e12, 1e12+1e9] and [1e18, 1e18+1e9] (both also compared by their counts),
# and [1e20, 1e20+1e9] above 2^64, where primesieve cannot go: it is held against primesieve's
# time for the window of the same length just below 2^64. The primary raster of 1e20 comes from
# the block file P101.BLK (limit 1e10), which is built once into BLOCK_DIR (default: a
# temporary folder) when it is not there.
#
#   bench/sieve_sekundaer_vs_primesieve.sh [BUILD_DIR]   (default: build/default; build it first)
#
# Targets: at most 3x primesieve for the first two windows, at most 4x for the third.
# Only this script installs primesieve (the Debian package), and only when it is missing.
set -euo pipefail

NAME=sieve_sekundaer_vs_primesieve
source "$(dirname "$0")/vergleich.sh"
BLOCK_DIR=${BLOCK_DIR:-$WORK}
export SW_HOME=$BLOCK_DIR

RUNS=${RUNS:-3}
echo "$(primesieve --version | head -1 | cut -d, -f1), sw-cli $("$CLI" --version | awk '{print $NF}'), runs: best of $RUNS"
printf '%-34s %10s %10s %8s %8s\n' "window" "sw-cli s" "primes. s" "ratio" "target"

for e in 12 18; do
  FROM=1$(printf '%0*d' "$e" 0)
  TO=$(echo "$FROM + 1000000000" | bc)
  SW=$("$CLI" count "$FROM" "$TO")
  PS=$(primesieve "$FROM" "$TO" -t1 -c -q)
  [[ $SW == "$PS" ]] || { echo "count of [1e$e, 1e$e+1e9] differs: sw-cli $SW, primesieve $PS" >&2; exit 1; }
  T=$(best "$RUNS" "$CLI" count "$FROM" "$TO")
  P=$(best "$RUNS" primesieve "$FROM" "$TO" -t1 -c -q)
  printf '%-34s %10s %10s %8s %8s\n' "[1e$e, 1e$e+1e9] ($SW primes)" "$T" "$P" "$(ratio "$T" "$P")" "3"
done

# Above 2^64: the primary raster up to 1e10 from its block file.
if [[ ! -f $BLOCK_DIR/P101.BLK ]]; then
  echo "building $BLOCK_DIR/P101.BLK (limit 1e10) once" >&2
  "$CLI" sieve 1e10 --save "$BLOCK_DIR/P101.BLK" >/dev/null
fi
FROM=100000000000000000000
TO=100000000001000000000
SW=$("$CLI" count "$FROM" "$TO")
T=$(best "$RUNS" "$CLI" count "$FROM" "$TO")
P=$(best "$RUNS" primesieve 18446744072709551615 18446744073709551615 -t1 -c -q)
printf '%-34s %10s %10s %8s %8s\n' "[1e20, 1e20+1e9] ($SW primes)" "$T" "$P" "$(ratio "$T" "$P")" "4"
echo "(primesieve's time is that of [2^64-1-1e9, 2^64-1]; it cannot count above 2^64)"
