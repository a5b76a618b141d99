#!/usr/bin/env bash
# Times `sw-cli teileranalyse 1 10^8` (the word walk, every prime q with a prime order of 2 from
# 11 on) against the same question put to PARI/GP: znorder over the primes, counting the prime
# orders >= 11. Both must count the same hits (196,648); prints both CPU times and the ratio
# sw-cli / GP (target: at most 1). The raster sieve of sw-cli is part of its time.
#
#   bench/teileranalyse_vs_pari.sh [BUILD_DIR] [N]   (default: build/default, 10^8)
set -euo pipefail

NAME=teileranalyse_vs_pari
source "$(dirname "$0")/vergleich.sh"
export SW_HOME=$WORK
N=${2:-100000000}
command -v gp >/dev/null || { echo "$NAME: gp (PARI/GP) not found" >&2; exit 1; }

SW_ANZAHL=$("$CLI" teileranalyse 1 "$N" --json | sed -n 's/.*"hits":\([0-9]*\).*/\1/p')
cat >"$WORK/lauf.gp" <<GP
c = 0; forprime(q = 3, $N, o = znorder(Mod(2, q)); if (o >= 11 && isprime(o), c++)); print(c); quit
GP
GP_ANZAHL=$(gp -q -s 100000000 "$WORK/lauf.gp")
[[ $SW_ANZAHL == "$GP_ANZAHL" ]] || { echo "hits: sw-cli $SW_ANZAHL, GP $GP_ANZAHL: WRONG"; exit 1; }

T_SW=$(best 3 "$CLI" teileranalyse 1 "$N")
T_GP=$(best 1 gp -q -s 100000000 "$WORK/lauf.gp")
echo "teileranalyse 1 $N: $SW_ANZAHL hits (GP agrees)"
echo "sw-cli $T_SW s, GP $T_GP s CPU: ratio $(ratio "$T_SW" "$T_GP") (target <= 1)"
