#!/usr/bin/env bash
# Times `sw-cli divisors` over every prime exponent in [10^7, 10^7 + 2*10^6] with k up to
# 1000, into a fresh database (target: under 30 s, every row written), then checks that the
# database holds one row per prime of the range (primesieve counts them) and times the second
# run, which finds every exponent settled and only reads.
#
#   bench/teiler_lauf.sh [BUILD_DIR]      (default: build/default; build it first)
set -euo pipefail

NAME=teiler_lauf
source "$(dirname "$0")/vergleich.sh"
export SW_HOME=$WORK
VON=10000000
BIS=12000000

START=$(date +%s.%N)
"$CLI" divisors --from $VON --to $BIS --k 1000 --db "$WORK/db" --json >"$WORK/aus"
ENDE=$(date +%s.%N)
ZEILEN=$(sqlite3 "$WORK/db/Prim.db" "SELECT count(*) FROM t_Prim WHERE Primzahl BETWEEN $VON AND $BIS")
PRIM=$(primesieve $VON $BIS -c -q)
[[ $ZEILEN == "$PRIM" ]] || { echo "rows: $ZEILEN, primes: $PRIM: WRONG"; exit 1; }
echo "first run:  $(awk -v a="$START" -v b="$ENDE" 'BEGIN { printf "%.2f", b - a }') s wall, $ZEILEN rows (one per prime, primesieve agrees)"
echo "            $(cat "$WORK/aus")"
T=$(best 1 "$CLI" divisors --from $VON --to $BIS --k 1000 --db "$WORK/db")
echo "second run: $T s CPU (all settled, reads only)"
