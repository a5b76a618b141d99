#!/usr/bin/env bash
# Times `sw-cli count 10^12 10^12+10^10` alone and under `mpirun -np 2` in one run and prints
# the ratio of the wall clocks (target <= 0.6: two processes on two cores). At this height the
# one process sieves its windows in one thread (the parallel pass of the sieve engages only for
# narrow windows far up), so the single run is the single-thread and the threaded figure at
# once. The counts must agree with each other and with primesieve.
#
#   bench/mpi_count.sh [BUILD_DIR]   (default: build/default; built with MPI)
#
# As root, mpirun needs OMPI_ALLOW_RUN_AS_ROOT=1 and OMPI_ALLOW_RUN_AS_ROOT_CONFIRM=1; they are
# set here. NP (default 2) and RUNS (default 3, best of) may be given in the environment.
set -euo pipefail

NAME=mpi_count
source "$(dirname "$0")/vergleich.sh"
command -v mpirun >/dev/null || { echo "$NAME: mpirun not found (package openmpi-bin)" >&2; exit 1; }
export SW_HOME=$WORK OMPI_ALLOW_RUN_AS_ROOT=1 OMPI_ALLOW_RUN_AS_ROOT_CONFIRM=1
CLI=$(cd "$(dirname "$CLI")" && pwd)/sw-cli
cd "$WORK"

NP=${NP:-2}
RUNS=${RUNS:-3}
VON=1000000000000
BIS=1010000000000
# Shared memory only, and no probing of UCX (0.2 s of every start on one machine).
MPI=(mpirun --oversubscribe --mca pml ob1 --mca btl self,vader -np "$NP")

ALLEIN=$("$CLI" count $VON $BIS)
VERTEILT=$("${MPI[@]}" "$CLI" count $VON $BIS)
THEIRS=$(primesieve $VON $BIS -c -q)
[[ $ALLEIN == "$THEIRS" && $VERTEILT == "$THEIRS" ]] ||
  { echo "count: alone $ALLEIN, $NP processes $VERTEILT, primesieve $THEIRS: WRONG"; exit 1; }

read -r T1 TN < <(abwechselnd wall "$RUNS" "$CLI" count $VON $BIS -- "${MPI[@]}" "$CLI" count $VON $BIS)
echo "sw-cli $("$CLI" --version | awk '{print $NF}'), $(mpirun --version | head -1), best of $RUNS, count $ALLEIN"
printf '%-44s %10s %10s %8s %8s\n' "job" "np=$NP s" "alone s" "ratio" "target"
printf '%-44s %10s %10s %8s %8s\n' "count 10^12 10^12+10^10" "$TN" "$T1" "$(ratio "$TN" "$T1")" "<= 0.6"
