#!/usr/bin/env bash
# Times sw-cli series against PARI/GP on the same count in one run and prints the ratio: the
# primes among n^2+1 for n = 1..N and among n^2+n+41 for n = 0..N-1 (N = 10^5 by default).
# sw-cli also tests each member's least factor and computes the Bateman-Horn constant over the
# primes to 10^5, which gp does not; the counts of both must agree. CPU seconds of one run each.
#
#   bench/series_vs_pari.sh [BUILD_DIR]      (default: build/default; build it first)
set -euo pipefail

ROOT=$(cd "$(dirname "$0")/.." && pwd)
BUILD=${1:-$ROOT/build/default}
CLI=$BUILD/bin/sw-cli
[[ -x $CLI ]] || { echo "series_vs_pari: $CLI not found; build it first" >&2; exit 1; }
command -v gp >/dev/null || { echo "series_vs_pari: gp (Debian pari-gp) not found" >&2; exit 1; }
N=${N:-100000}
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
export SW_HOME=$WORK

printf '%-12s %8s %8s %10s %8s %8s\n' "formula" "sw" "gp" "sw-cli s" "gp s" "ratio"
for fall in "n^2+1:1:$N" "n^2+n+41:0:$((N - 1))"; do
  IFS=: read -r formel von bis <<<"$fall"
  /usr/bin/time -o "$WORK/zeit" -f '%U %S' "$CLI" series "$formel" "$von" "$bis" >"$WORK/aus"
  SW_S=$(awk '{ printf "%.3f", $1 + $2 }' "$WORK/zeit")
  SW_N=$(tail -1 "$WORK/aus" | awk '{ print $2 }')
  read -r GP_N GP_S < <(gp -q -f <<GP
t = getabstime(); c = sum(n = $von, $bis, isprime(subst($formel, 'n, n))); printf("%d %.3f\n", c, (getabstime() - t) / 1000.)
GP
)
  [[ $SW_N == "$GP_N" ]] || echo "$formel: counts differ ($SW_N against $GP_N)" >&2
  printf '%-12s %8s %8s %10s %8s %8s\n' "$formel" "$SW_N" "$GP_N" "$SW_S" "$GP_S" \
    "$(awk -v a="$SW_S" -v b="$GP_S" 'BEGIN { printf "%.2f", a / (b < 0.001 ? 0.001 : b) }')"
done
