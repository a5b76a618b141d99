#!/usr/bin/env bash
# The shared work queue on this machine: the divisor search over one range by 4 workers on a
# private PostgreSQL server against one uninterrupted `sw-cli divisors` into SQLite (target:
# at most 0.6 of its wall time on 2 cores; the tables must agree), then claims per second on a
# queue of tiny units (one Collatz start each) emptied by 4 workers.
#
#   bench/arbeit_worker.sh [BUILD_DIR]      (default: build/default; build it first)
set -euo pipefail

NAME=arbeit_worker
source "$(dirname "$0")/vergleich.sh"
export SW_HOME=$WORK
VON=2000000
BIS=2200000
K=200000
EINHEIT=5000
EINHEITEN_KLEIN=2000

# A private server on a socket in the scratch folder; PostgreSQL refuses to run as root.
PG=/usr/lib/postgresql/15/bin
als=()
if [[ $(id -u) -eq 0 ]]; then
  als=(runuser -u postgres --)
  chown postgres "$WORK"
fi
"${als[@]}" "$PG/initdb" -D "$WORK/pg" -U sw -A trust >/dev/null
"${als[@]}" "$PG/pg_ctl" -D "$WORK/pg" -l "$WORK/pg.log" -w \
  -o "-c listen_addresses='' -c unix_socket_directories='$WORK' -c fsync=off -p 5499" start >/dev/null
trap '"${als[@]}" "$PG/pg_ctl" -D "$WORK/pg" -m immediate stop >/dev/null 2>&1 || true; rm -rf "$WORK"' EXIT
"${als[@]}" "$PG/createdb" -h "$WORK" -p 5499 -U sw sw
URL="postgresql://sw@/sw?host=$WORK&port=5499"

wand() { local a; a=$(date +%s.%N); "$@" >/dev/null; awk -v a="$a" -v b="$(date +%s.%N)" 'BEGIN { printf "%.2f", b - a }'; }

EINS=$(wand "$CLI" divisors --from $VON --to $BIS --k $K --db "$WORK/db")
"$CLI" work add divisors $VON $BIS --kziel $K --unit $EINHEIT --db "$URL" >/dev/null
vier() {
  for i in 1 2 3 4; do "$CLI" worker --db "$URL" --name "w$i" >"$WORK/w$i.out" & done
  wait
}
VIER=$(wand vier)
sqlite3 -separator '|' "$WORK/db/Prim.db" \
  "SELECT Primzahl, Mersenne, Teiler, TeilerPot, coalesce(FaktorS, '') FROM t_Prim ORDER BY Primzahl" >"$WORK/eins.txt"
"${als[@]}" "$PG/psql" -h "$WORK" -p 5499 -U sw -d sw -At -F '|' \
  -c "SELECT Primzahl, Mersenne, Teiler, TeilerPot, coalesce(FaktorS, '') FROM t_Prim ORDER BY Primzahl" >"$WORK/vier.txt"
cmp -s "$WORK/eins.txt" "$WORK/vier.txt" || { echo "the tables differ: WRONG"; exit 1; }
echo "divisors $VON..$BIS, k up to $K: 1 process $EINS s, 4 workers $VIER s wall ($(ratio "$VIER" "$EINS")x, target <= 0.6; $(wc -l <"$WORK/eins.txt") rows agree)"

"$CLI" work add collatz 1 $EINHEITEN_KLEIN --unit 1 --db "$URL" >/dev/null
KLEIN=$(wand vier)
echo "claims: $EINHEITEN_KLEIN tiny units by 4 workers in $KLEIN s: $(awk -v n=$EINHEITEN_KLEIN -v t="$KLEIN" 'BEGIN { printf "%.0f", n / t }') claims/s"
