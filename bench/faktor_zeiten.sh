#!/usr/bin/env bash
# Times sw-cli factor on the cases the factoriser is measured by: 2^256+1 (a 16-digit factor
# and a 62-digit prime to prove) and products of two 25-digit primes (fixed, so runs compare).
# Wall-clock seconds (the curves run on all cores) and CPU seconds of each; with PARI/GP
# installed, its factorint on the same numbers as a measuring stick.
# Usage: bench/faktor_zeiten.sh [BUILD_DIR]
set -euo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
BUILD=${1:-$ROOT/build/default}
CLI=$BUILD/bin/sw-cli
[[ -x $CLI ]] || { echo "faktor_zeiten: $CLI not found; build first" >&2; exit 1; }
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT

ZAHLEN=(
  "2^256+1"
  "4942217576187801321088541*8796882113734473040321157"
  "6953256915250407757283161*7924439388568400274982499"
  "764557921570462978827521*9492588215869131995070509"
  "2566951441625263655789551*5117157288636710123958553"
  "4514619108264803119751837*6749969551099587629298569"
)

printf '%-55s %8s %8s %8s\n' "N" "wall s" "cpu s" "gp s"
for n in "${ZAHLEN[@]}"; do
  /usr/bin/time -o "$WORK/zeit" -f '%e %U %S' "$CLI" factor "$n" >"$WORK/aus"
  read -r wand nutzer system <"$WORK/zeit"
  gp_zeit="-"
  if command -v gp >/dev/null; then
    /usr/bin/time -o "$WORK/gp" -f '%e' gp -q -f <<<"factorint($n)" >/dev/null 2>&1 && gp_zeit=$(cat "$WORK/gp")
  fi
  printf '%-55s %8s %8s %8s\n' "$n" "$wand" "$(awk -v a="$nutzer" -v b="$system" 'BEGIN { print a + b }')" "$gp_zeit"
done
