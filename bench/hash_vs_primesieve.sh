#!/usr/bin/env bash
# Times the hash walk over all primes to 2e9 (the raster built first, not counted: sw-cli
# reports the walk's own CPU seconds) against `primesieve 2e9 -c1` (single thread) in one run,
# prints the ratio for every method, and checks the prime count against primesieve's.
#
#   bench/hash_vs_primesieve.sh [BUILD_DIR]      (default: build/default; build it first)
set -euo pipefail

NAME=hash_vs_primesieve
source "$(dirname "$0")/vergleich.sh"
export SW_HOME=$WORK

RUNS=${RUNS:-3}
PS=$(best "$RUNS" primesieve 2e9 -t1 -c1 -q)
THEIRS=$(primesieve 2e9 -t1 -c1 -q)
printf '%-22s %10s %10s %8s\n' "job" "sw-cli s" "primes. s" "ratio"
for m in 0 1 2; do
  beste=""
  for ((r = 0; r < RUNS; r++)); do
    J=$("$CLI" hash --bits 16 --method "$m" --limit 2e9 --json)
    OURS=$(sed 's/.*"primes":\([0-9]*\).*/\1/' <<<"$J")
    [[ $OURS == "$THEIRS" ]] || { echo "primes to 2e9: sw-cli $OURS, primesieve $THEIRS: WRONG"; exit 1; }
    T=$(sed 's/.*"cpu_seconds":\([0-9.e-]*\).*/\1/' <<<"$J")
    if [[ -z $beste ]] || awk -v t="$T" -v b="$beste" 'BEGIN { exit !(t < b) }'; then beste=$T; fi
  done
  printf '%-22s %10.3f %10s %8s\n' "hash 2e9 method $m" "$beste" "$PS" "$(ratio "$beste" "$PS")"
done
echo "primes to 2e9 = $THEIRS (primesieve agrees)"
