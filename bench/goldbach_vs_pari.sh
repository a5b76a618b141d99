#!/usr/bin/env bash
# Times r(N), the number of splits of an even N into two primes p <= q, from a built raster
# against a PARI/GP loop over the primes in one run, and prints the ratio. sw-cli reports the
# CPU seconds of the count alone (the raster up to N is sieved before it); gp's loop is timed
# inside gp. Both counts must agree (gp's loop leaves out 2, which only splits 4).
#
#   bench/goldbach_vs_pari.sh [BUILD_DIR] [N]      (defaults: build/ci, 10^9; build sw-cli first)
set -euo pipefail

ROOT=$(cd "$(dirname "$0")/.." && pwd)
BUILD=${1:-$ROOT/build/ci}
N=${2:-1000000000}
CLI=$BUILD/bin/sw-cli
[[ -x $CLI ]] || { echo "goldbach_vs_pari: $CLI not found; build it first" >&2; exit 1; }
command -v gp >/dev/null || { echo "goldbach_vs_pari: gp (Debian pari-gp) not found" >&2; exit 1; }
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
export SW_HOME=$WORK

SW_JSON=$("$CLI" goldbach "$N" --count --json)
SW_R=$(sed -E 's/.*"count":([0-9]+).*/\1/' <<<"$SW_JSON")
SW_S=$(sed -E 's/.*"cpu_seconds":([0-9.]+).*/\1/' <<<"$SW_JSON")

read -r GP_R GP_S < <(gp -q -f -s 100000000 <<GP
n = $N; c = 0; t = getabstime(); forprime(p = 3, n / 2, if(isprime(n - p), c++)); printf("%d %.3f\n", c, (getabstime() - t) / 1000.)
GP
)

[[ $SW_R == "$GP_R" ]] || echo "goldbach_vs_pari: counts differ: sw-cli $SW_R, gp $GP_R" >&2
printf '%-12s %10s %10s %10s %8s\n' "N" "r(N)" "sw-cli s" "gp s" "ratio"
printf '%-12s %10s %10s %10s %8s\n' "$N" "$SW_R" "$SW_S" "$GP_S" "$(awk -v a="$SW_S" -v b="$GP_S" 'BEGIN { printf "%.4f", (a < 0.001 ? 0.001 : a) / b }')"
