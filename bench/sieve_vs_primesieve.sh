#!/usr/bin/env bash
# Times sw-cli's primary sieve against primesieve (single thread) in one run and prints the
# ratios: every method at 2e9, method 0 at 1e10, the load of a block file (P092.BLK) with
# the count, the peak memory of `sw-cli sieve 2e9`, and the hashes of the saved rasters of
# all methods (they must be equal).
#
#   bench/sieve_vs_primesieve.sh [BUILD_DIR]      (default: build/default; build it first)
#
# Only this script installs primesieve (the Debian package), and only when it is missing.
set -euo pipefail

NAME=sieve_vs_primesieve
source "$(dirname "$0")/vergleich.sh"
export SW_HOME=$WORK


RUNS=${RUNS:-3}
echo "$(primesieve --version | head -1 | cut -d, -f1), sw-cli $("$CLI" --version | awk '{print $NF}'), CPU seconds, best of $RUNS"
PS2=$(best "$RUNS" primesieve 2e9 -t1 -c -q)
PS10=$(best "$RUNS" primesieve 1e10 -t1 -c -q)
printf '%-24s %10s %10s %8s\n' "job" "sw-cli s" "primes. s" "ratio"
for m in 0 1 2 3 4 5 6; do
  T=$(best "$RUNS" "$CLI" sieve 2e9 --method "$m")
  NAME=$("$CLI" sieve 1000 --method "$m" --json | sed 's/.*"method_name":"\([^"]*\)".*/\1/')
  printf '%-24s %10s %10s %8s\n' "2e9 $m $NAME" "$T" "$PS2" "$(ratio "$T" "$PS2")"
done
T=$(best 1 "$CLI" sieve 1e10 --method 0)
printf '%-24s %10s %10s %8s\n' "1e10 0 SiebProdukt" "$T" "$PS10" "$(ratio "$T" "$PS10")"

# The counts must be primesieve's (pi(2e9) = 98,222,287, pi(1e10) = 455,052,511).
for L in 2e9 1e10; do
  OURS=$("$CLI" sieve "$L" --json | sed 's/.*"primes":\([0-9]*\).*/\1/')
  THEIRS=$(primesieve "$L" -t1 -c -q)
  [[ $OURS == "$THEIRS" ]] || { echo "pi($L): sw-cli $OURS, primesieve $THEIRS: WRONG"; exit 1; }
  echo "pi($L) = $OURS (primesieve agrees)"
done

# Block load: P092.BLK in the working folder, then method 3 finds and loads it.
"$CLI" sieve 2e9 --save "$WORK/P092.BLK" >/dev/null
T=$(best "$RUNS" "$CLI" sieve 2e9 --method 3)
printf '%-24s %10s   CPU s of the whole command; the run itself (target < 0.2 s with the count):\n' "2e9 3 with P092.BLK" "$T"
"$CLI" sieve 2e9 --method 3 --json
rm -f "$WORK/P092.BLK"

# Peak memory of the main method at 2e9 (the raster alone is 66.7 MB).
KB=$(/usr/bin/time -v "$CLI" sieve 2e9 2>&1 >/dev/null | awk -F: '/Maximum resident/ {gsub(/ /, "", $2); print $2}')
printf '%-24s %10s MB (target <= 80 MB)\n' "peak memory 2e9" "$(awk -v k="$KB" 'BEGIN { printf "%.1f", k / 1024 }')"

# The saved rasters of all methods must be the same file.
for m in 0 1 2 3 4 5 6; do
  "$CLI" sieve 2e9 --method "$m" --save "$WORK/m$m.raster" >/dev/null
  printf 'method %d sha256 %s\n' "$m" "$(sha256sum "$WORK/m$m.raster" | cut -c1-16)"
done
if [[ $(sha256sum "$WORK"/m*.raster | awk '{print $1}' | sort -u | wc -l) -eq 1 ]]; then
  echo "hashes: all seven equal"
else
  echo "hashes: DIFFERENT"; exit 1
fi
