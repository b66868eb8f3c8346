# For the tests by script clients; to be sourced. Each is a program of its own: it starts a display and Wine unless
# script/test has done so, and prints a line "ok NAME", "not ok NAME" or "skip NAME" a test.
. "$(dirname "${BASH_SOURCE[0]}")/../../script/lib/common.sh"
. "$root/script/lib/display.sh"
. "$root/script/lib/wine.sh"

built=${PELLORA_BUILD:-$root/build/win64}
clients=$root/tests/windows/clients
if [[ -z ${PELLORA_WINE_RUNS:-} ]]; then
  start_display
  start_wine test
fi
register "$built/Pellora.dll" "$built/PelloraWorkbook.dll"

# A folder of one's own: what a client leaves, the library's logs among it, is not found by the next one.
desk=$root/build/clients/$(basename "$0" .sh)
rm -rf "$desk"
mkdir -p "$desk"
cd "$desk"

# client NAME SECONDS [ARGUMENT...]: runs clients/NAME after clients/check.vbs or .js, and prints its lines. A script
# that breaks off is silent and ends with success, and one that goes on after an error passes over the statement: so a
# closing "end" and a line for each check in the source are demanded.
client() {
  local name=$1 seconds=$2 kind=${1##*.} script checks lines
  shift 2
  script=$desk/$name
  cat "$clients/check.$kind" "$clients/$name" >"$script"
  run_wine "$seconds" cscript //nologo "$(windows_path "$script")" "$@" 2>/dev/null | tr -d '\r' >"$script.out" || true
  grep -E '^(ok|not ok|skip) ' "$script.out" || true
  checks=$(grep -cE '^ *(Check|Equal|Fails|equal)[ (]' "$clients/$name")
  lines=$(grep -cE '^(ok|not ok|skip) ' "$script.out" || true)
  if [[ $(tail -n 1 "$script.out") == end ]] && (( lines >= checks )); then
    echo "ok $name ran to its end"
  else
    echo "not ok $name ran to its end with $checks checks; $lines came, the last line: $(tail -n 1 "$script.out")"
  fi
}

# played_client NAME SECONDS PLAY [ARGUMENT...]: the same, while the play of plays.py answers the dialogs.
played_client() {
  local name=$1 seconds=$2 play=$3
  shift 3
  timeout -k 5 "$seconds" python3 "$root/tests/windows/plays.py" "$play" "$built/probe.exe" >"$desk/$play.play" &
  local player=$!
  # When the play breaks off nobody answers the dialogs: the client is then ended by its time.
  client "$name" "$seconds" "$@"
  if wait "$player"; then
    echo "ok the play $play found what it expected"
  else
    cat "$desk/$play.play"
    echo "not ok the play $play found what it expected"
  fi
}

# no_settings: as on a machine where the library never ran.
no_settings() {
  run_wine 30 reg delete 'HKCU\Software\CORVANE' /f >/dev/null 2>&1 || true
}
