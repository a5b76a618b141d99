#!/usr/bin/env bash
# Times `sw-cli mersenne-system` against a PARI/GP znorder loop in one run and prints the
# ratio (target: at most 1): the order of 2 modulo every prime q = +-1 mod 8 in
# [10^9, 10^9 + 10^7], and whether it is prime. Both sides must count the same 13,568 prime
# orders and 227,367 others. CPU seconds, best of RUNS; sw-cli's whole process against gp's
# loop alone, timed inside gp.
#
#   bench/mersenne_system_vs_pari.sh [BUILD_DIR]      (default: build/default; build it first)
set -euo pipefail

ROOT=$(cd "$(dirname "$0")/.." && pwd)
BUILD=${1:-$ROOT/build/default}
CLI=$BUILD/bin/sw-cli
[[ -x $CLI ]] || { echo "mersenne_system_vs_pari: $CLI not found; build it first" >&2; exit 1; }
command -v gp >/dev/null || { echo "mersenne_system_vs_pari: gp (Debian pari-gp) not found" >&2; exit 1; }
[[ -x /usr/bin/time ]] || { echo "mersenne_system_vs_pari: /usr/bin/time not found" >&2; exit 1; }
RUNS=${RUNS:-3}
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
export SW_HOME=$WORK
VON=1000000000
BIS=1010000000

best=""
for ((r = 0; r < RUNS; r++)); do
  /usr/bin/time -o "$WORK/zeit" -f '%U %S' "$CLI" mersenne-system $VON $BIS --json >"$WORK/aus" 2>/dev/null
  t=$(awk '{ print $1 + $2 }' "$WORK/zeit")
  if [[ -z $best ]] || awk -v t="$t" -v b="$best" 'BEGIN { exit !(t < b) }'; then best=$t; fi
done
SW=$best
SW_ZAHLEN=$(sed -E 's/.*"prime_order":([0-9]+),"no_prime_order":([0-9]+).*/\1 \2/' "$WORK/aus")

read -r GP GP_ZAHLEN < <(gp -q -f <<GP
b = 10^9; for(r = 1, $RUNS, t = getabstime(); a = 0; o = 0; forprime(q = $VON, $BIS, if(q % 8 == 1 || q % 8 == 7, if(isprime(znorder(Mod(2, q))), a++, o++))); b = min(b, getabstime() - t)); printf("%.3f %d %d\n", b / 1000., a, o)
GP
)

printf '%-44s %10s %10s %8s\n' "job" "sw-cli s" "gp s" "ratio"
printf '%-44s %10.3f %10.3f %8s\n' "orders of the wheel primes in [1e9, 1e9+1e7]" "$SW" "$GP" \
  "$(awk -v a="$SW" -v b="$GP" 'BEGIN { printf "%.2f", a / b }')"
echo "counts (prime order, other): sw-cli $SW_ZAHLEN, gp $GP_ZAHLEN"
[[ $SW_ZAHLEN == "$GP_ZAHLEN" ]] || { echo "the counts differ: WRONG"; exit 1; }
