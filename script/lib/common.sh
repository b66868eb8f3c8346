# Shared by the scripts; to be sourced. Sets the strict mode, `root` and the current folder, and gives a few verbs.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
cd "$root"
logs=$root/build/logs
mkdir -p "$logs"

say() { printf '%s\n' "$*"; }
fail() {
  printf '%s: %s\n' "script/${0##*/}" "$*" >&2
  exit 1
}

# Commands to run at the end, last one first, however the script ends.
_at_exit=()
at_exit() { _at_exit=("$*" "${_at_exit[@]}"); }
_run_at_exit() {
  local status=$? command
  for command in "${_at_exit[@]}"; do eval "$command" || true; done
  return "$status"
}
trap _run_at_exit EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# quietly LOG COMMAND...: runs the command with its output in build/logs/LOG.log; shows the end of it when it fails.
quietly() {
  local log=$logs/$1.log status=0
  shift
  "$@" </dev/null >"$log" 2>&1 || status=$?
  if (( status != 0 )); then
    tail -n 40 "$log" >&2
    printf 'failed (%s): %s\nthe whole output: %s\n' "$status" "$*" "${log#"$root"/}" >&2
  fi
  return "$status"
}

# until_true SECONDS COMMAND...: polls until the command succeeds; fails when the time is over.
until_true() {
  local end=$(( SECONDS + $1 ))
  shift
  until "$@" >/dev/null 2>&1; do
    (( SECONDS < end )) || return 1
    sleep 0.05
  done
}

# build PRESET [TARGET...]: configures the preset and builds the targets, or all.
build() {
  local preset=$1
  shift
  quietly "configure-$preset" cmake --preset "$preset" || return 1
  quietly "build-$preset" cmake --build --preset "$preset" ${1:+--target "$@"}
}

# on_one_core NUMBER: keeps this shell and what it starts on one of the cores, counted around. Programs that call each
# other all the time, as those of Windows do with Wine's server, are three times as fast when nobody has to be woken on
# another core.
on_one_core() {
  local cores
  mapfile -t cores < <(python3 -c 'import os; print(*sorted(os.sched_getaffinity(0)), sep="\n")')
  (( ${#cores[@]} > 0 )) || return 0
  taskset -cp "${cores[$1 % ${#cores[@]}]}" "$BASHPID" >/dev/null
}

project_version() { sed -n 's/^project(Pellora VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt; }

# The day of what is in an archive: the commit's. Outside a clone there is none, and the day is that of the version's
# file.
archive_day() { git log -1 --format=%ct 2>/dev/null || stat -c %Y CMakeLists.txt; }
