#!/usr/bin/env bash
# SW in two commands:
#   ./sw.sh              builds SW and starts it (arguments go to the program)
#   ./sw.sh test         builds SW and runs all tests
#   ./sw.sh test asan    the same with the address/undefined sanitizer build
#   ./sw.sh fuzz [SECS]  builds the fuzz targets with clang and runs each for SECS seconds
set -euo pipefail
cd "$(dirname "$0")"
JOBS=$(nproc 2>/dev/null || echo 2)

bash scripts/setup.sh >/dev/null

case "${1:-run}" in
  test)
    preset="${2:-ci}"
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset" -j "$JOBS"
    ctest --preset "$preset" -j "$JOBS"
    ;;
  fuzz)
    secs="${2:-30}"
    cmake --preset fuzz >/dev/null
    cmake --build --preset fuzz -j "$JOBS"
    for f in build/fuzz/bin/fuzz_*; do
      corpus="build/fuzz/corpus/$(basename "$f")"
      mkdir -p "$corpus"
      echo "== $(basename "$f") for ${secs}s"
      "$f" -max_total_time="$secs" -print_final_stats=0 "$corpus" fuzz/seeds/"$(basename "$f")" 2>&1 | tail -n 3
    done
    ;;
  run|*)
    [[ "${1:-}" == "run" ]] && shift
    cmake --preset default >/dev/null
    cmake --build --preset default -j "$JOBS"
    if [[ -x build/default/bin/sw ]]; then
      exec build/default/bin/sw "$@"
    else
      exec build/default/bin/sw-cli "$@"
    fi
    ;;
esac
