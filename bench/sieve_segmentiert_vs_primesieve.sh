#!/usr/bin/env bash
# Times the segmented build (method 7) against primesieve in one run and prints the ratios:
# one thread to 2e9 and 1e10 against `primesieve -t1 -c` (target <= 1.2, the whole raster
# written), two threads to 1e10 against method 7's own single thread (target <= 0.6, by the wall
# clock, since CPU time adds the threads up), and `sw-cli count 10^20 10^20+10^6` from start to
# answer without a block file, against primesieve's window of 10^6 just below 2^64 (target <= 3).
# The counts are checked against primesieve's.
#
#   bench/sieve_segmentiert_vs_primesieve.sh [BUILD_DIR]   (default: build/default; build it first)
#
# A raster to 1e10 takes 333 MB. Only vergleich.sh installs primesieve, and only when missing.
set -euo pipefail

NAME=sieve_segmentiert_vs_primesieve
source "$(dirname "$0")/vergleich.sh"
export SW_HOME=$WORK
CLI=$(cd "$(dirname "$CLI")" && pwd)/sw-cli  # absolute: the runs work in the scratch folder
cd "$WORK"

RUNS=${RUNS:-3}
echo "$(primesieve --version | head -1 | cut -d, -f1), sw-cli $("$CLI" --version | awk '{print $NF}'), best of $RUNS"
printf '%-40s %10s %10s %8s %8s\n' "job" "sw-cli s" "ref. s" "ratio" "target"

for L in 2e9 1e10; do
  OURS=$("$CLI" sieve "$L" --method 7 --threads 1 --json | sed 's/.*"primes":\([0-9]*\).*/\1/')
  THEIRS=$(primesieve "$L" -t1 -c -q)
  [[ $OURS == "$THEIRS" ]] || { echo "pi($L): sw-cli $OURS, primesieve $THEIRS: WRONG"; exit 1; }
  read -r T P < <(abwechselnd cpu "$RUNS" "$CLI" sieve "$L" --method 7 --threads 1 -- primesieve "$L" -t1 -c -q)
  printf '%-40s %10s %10s %8s %8s\n' "sieve $L, 1 thread (CPU s)" "$T" "$P" "$(ratio "$T" "$P")" "1.2"
done

read -r T1 T2 < <(abwechselnd wall "$RUNS" "$CLI" sieve 1e10 --method 7 --threads 1 -- "$CLI" sieve 1e10 --method 7 --threads 2)
printf '%-40s %10s %10s %8s %8s\n' "sieve 1e10, 2 vs 1 threads (wall s)" "$T2" "$T1" "$(ratio "$T2" "$T1")" "0.6"

SW=$("$CLI" count 10^20 10^20+10^6)
read -r T P < <(abwechselnd wall "$RUNS" "$CLI" count 10^20 10^20+10^6 -- primesieve 18446744073708551615 18446744073709551615 -t1 -c -q)
printf '%-40s %10s %10s %8s %8s\n' "count 10^20 +10^6 ($SW primes, wall s)" "$T" "$P" "$(ratio "$T" "$P")" "3"
echo "(primesieve's time is that of [2^64-1-10^6, 2^64-1]; it cannot count above 2^64)"
