# Shared by the comparison scripts of bench/: finds the built sw-cli, installs primesieve (the
# Debian package) when it is missing — only these scripts install it — makes a scratch folder,
# and times commands. Source it after setting NAME; it reads BUILD_DIR from $1.
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
BUILD=${1:-$ROOT/build/default}
CLI=$BUILD/bin/sw-cli
[[ -x $CLI ]] || { echo "$NAME: $CLI not found; build with: cmake --preset default && cmake --build --preset default" >&2; exit 1; }

fehlt=()
command -v primesieve >/dev/null || fehlt+=(primesieve)
[[ -x /usr/bin/time ]] || fehlt+=(time)
if ((${#fehlt[@]})); then
  SUDO=""; [[ $(id -u) -ne 0 ]] && SUDO="sudo"
  echo "$NAME: installing ${fehlt[*]}" >&2
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${fehlt[@]}" >/dev/null
fi

WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT

# CPU seconds (user + system) of a command, best of N runs. The machine may be shared; CPU
# time is what a job costs, where the wall clock also counts the waits for the other jobs.
best() {
  local n=$1; shift
  local best=""
  for ((r = 0; r < n; r++)); do
    /usr/bin/time -o "$WORK/zeit" -f '%U %S' "$@" >/dev/null 2>&1
    best=$(kleiner "$(awk '{ print $1 + $2 }' "$WORK/zeit")" "$best")
  done
  printf '%.3f' "$best"
}

# The smaller of two times; an empty second one counts as none yet.
kleiner() { awk -v t="$1" -v b="$2" 'BEGIN { print (b == "" || t < b) ? t : b }'; }

# Best seconds of two commands, N runs each, taken by turns: on a shared host whose speed
# drifts over a minute both commands then see the same machine, where two blocks of runs would
# compare a fast minute with a slow one. ART is wall (the wall clock) or cpu (user + system).
# Prints "A B".
#   read -r TA TB < <(abwechselnd ART N command A ... -- command B ...)
abwechselnd() {
  local art=$1 n=$2; shift 2
  local a=()
  while [[ $1 != -- ]]; do a+=("$1"); shift; done
  shift
  local format='%e' ba="" bb=""
  [[ $art == cpu ]] && format='%U %S'
  for ((r = 0; r < n; r++)); do
    /usr/bin/time -o "$WORK/zeit" -f "$format" "${a[@]}" >/dev/null 2>&1
    ba=$(kleiner "$(awk '{ print $1 + $2 }' "$WORK/zeit")" "$ba")
    /usr/bin/time -o "$WORK/zeit" -f "$format" "$@" >/dev/null 2>&1
    bb=$(kleiner "$(awk '{ print $1 + $2 }' "$WORK/zeit")" "$bb")
  done
  printf '%.3f %.3f\n' "$ba" "$bb"
}

# a / b with two decimals.
ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", a / b }'; }
