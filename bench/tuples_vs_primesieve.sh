#!/usr/bin/env bash
# Times sw-cli count --tuples against primesieve -c1234 (single thread) in one run and prints
# the ratio: the primes, twins, triplets and quadruplets of [1e12, 1e12+1e9], sieve included
# (sw-cli counts cousins, sexy pairs and the decade table on top). Both runs are compared by
# their counts first. CPU seconds, best of RUNS.
#
#   bench/tuples_vs_primesieve.sh [BUILD_DIR]   (default: build/default; build it first)
#
# Target: at most 3x primesieve.
set -euo pipefail

NAME=tuples_vs_primesieve
source "$(dirname "$0")/vergleich.sh"
export SW_HOME=$WORK

RUNS=${RUNS:-3}
FROM=1000000000000
TO=1001000000000
echo "$(primesieve --version | head -1 | cut -d, -f1), sw-cli $("$CLI" --version | awk '{print $NF}'), runs: best of $RUNS"

SW=$("$CLI" count "$FROM" "$TO" --tuples --json |
  sed -E 's/.*"primes":([0-9]+),"twins":([0-9]+),.*"quadruplets":([0-9]+),"triplets":([0-9]+),.*/\1 \2 \4 \3/')
PS=$(primesieve "$FROM" "$TO" -t1 -c1234 | awk '/^Primes|^Twin|^Prime trip|^Prime quad/ { printf "%s%s", s, $NF; s = " " }')
[[ $SW == "$PS" ]] || { echo "counts of [1e12, 1e12+1e9] differ: sw-cli $SW, primesieve $PS" >&2; exit 1; }
T=$(best "$RUNS" "$CLI" count "$FROM" "$TO" --tuples)
P=$(best "$RUNS" primesieve "$FROM" "$TO" -t1 -c1234 -q)
printf '%-38s %10s %10s %8s %8s\n' "range" "sw-cli s" "primes. s" "ratio" "target"
printf '%-38s %10s %10s %8s %8s\n' "[1e12, 1e12+1e9] sieve included" "$T" "$P" "$(ratio "$T" "$P")" "3"
echo "(counts: $SW)"
