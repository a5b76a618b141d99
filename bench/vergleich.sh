# Shared by the comparison scripts of bench/: finds the built sw-cli, installs primesieve (the
# Debian package) when it is missing — only these scripts install it — makes a scratch folder,
# and times commands. Source it after setting NAME; it reads BUILD_DIR from $1.
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
BUILD=${1:-$ROOT/build/default}
CLI=$BUILD/bin/sw-cli
[[ -x $CLI ]] || { echo "$NAME: $CLI not found; build with: cmake --preset default && cmake --build --preset default" >&2; exit 1; }

fehlt=()
command -v primesieve >/dev/null || fehlt+=(primesieve)
if ((${#fehlt[@]})); then
  SUDO=""; [[ $(id -u) -ne 0 ]] && SUDO="sudo"
  echo "$NAME: installing ${fehlt[*]}" >&2
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${fehlt[@]}" >/dev/null
fi

WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT

# Seconds of one run of a command, to the millisecond (GNU time prints hundredths, a step of
# 4 % in a run of a quarter second). ART is wall (the wall clock) or cpu (user + system of the
# command and its children, from bash's own accounting).
messen() {
  local art=$1; shift
  if [[ $art == cpu ]]; then
    ( "$@" >/dev/null 2>&1 || true; times ) | awk 'NR == 2 {
      t = 0
      for (i = 1; i <= 2; ++i) { split($i, a, /[ms]/); t += a[1] * 60 + a[2] }
      printf "%.3f\n", t }'
  else
    local von bis
    von=$(date +%s%N)
    "$@" >/dev/null 2>&1 || true
    bis=$(date +%s%N)
    awk -v d=$((bis - von)) 'BEGIN { printf "%.3f\n", d / 1e9 }'
  fi
}

# CPU seconds (user + system) of a command, best of N runs. The machine may be shared; CPU
# time is what a job costs, where the wall clock also counts the waits for the other jobs.
best() {
  local n=$1; shift
  local best=""
  for ((r = 0; r < n; r++)); do best=$(kleiner "$(messen cpu "$@")" "$best"); done
  printf '%.3f' "$best"
}

# The smaller of two times; an empty second one counts as none yet.
kleiner() { awk -v t="$1" -v b="$2" 'BEGIN { print (b == "" || t < b) ? t : b }'; }

# Best seconds of two commands, N runs each, taken by turns: on a shared host whose speed
# drifts over a minute both commands then see the same machine, where two blocks of runs would
# compare a fast minute with a slow one. ART is wall or cpu, as for messen. Prints "A B".
#   read -r TA TB < <(abwechselnd ART N command A ... -- command B ...)
abwechselnd() {
  local art=$1 n=$2; shift 2
  local a=()
  while [[ $1 != -- ]]; do a+=("$1"); shift; done
  shift
  local ba="" bb=""
  for ((r = 0; r < n; r++)); do
    ba=$(kleiner "$(messen "$art" "${a[@]}")" "$ba")
    bb=$(kleiner "$(messen "$art" "$@")" "$bb")
  done
  printf '%.3f %.3f\n' "$ba" "$bb"
}

# a / b with two decimals.
ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", a / b }'; }
