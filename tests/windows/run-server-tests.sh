#!/usr/bin/env bash
# Runs the automation clients against the built DLL: registers it, plays each script, takes the registration back.
#
#   tests/windows/run-server-tests.sh [BUILD_DIR]
#
# BUILD_DIR defaults to $PELLORA_BUILD, then to build/win64. The Wine prefix is the one of the environment and must be
# private: classes are registered in it for the machine. Dialogs come up on the display of the environment and are
# closed. Prints one line "ok ..." or "not ok ..." a check.
set -u
here=$(cd "$(dirname "$0")" && pwd)
build=${1:-${PELLORA_BUILD:-$here/../../build/win64}}
: "${WINEPREFIX:?name a private Wine prefix}"
export WINEPREFIX WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="mscoree=;mshtml=;winedbg.exe="

failed=0
cancelling=$build/tests/windows/server/cancelling.exe
windows_path() { printf 'Z:%s' "$(realpath -m "$1" | tr / '\\')"; }
verdict() {
  if "${@:2}"; then printf 'ok %s\n' "$1"; else printf 'not ok %s\n' "$1"; failed=1; fi
}
run() { timeout -k 5 60 wine "$@" </dev/null; }

# A script engine prints nothing and ends with 0 when the script itself fails: only one that came to its last line counts.
play() {
  local script=$1 output
  output=$(run "$cancelling" cscript //nologo "$(windows_path "$script")" 2>/dev/null | tr -d '\r')
  grep -E '^(ok|not ok) ' <<<"$output"
  if grep -q '^not ok ' <<<"$output"; then failed=1; fi
  verdict "$(basename "$script") ran to its end" grep -qx END <<<"$output"
}

dll=$(windows_path "$build/Pellora.dll")
verdict "regsvr32 registers the library" run regsvr32 /s "$dll"
for script in "$here"/server/*.vbs "$here"/server/*.js; do play "$script"; done
verdict "regsvr32 takes the registration back" run regsvr32 /s /u "$dll"
verdict "regsvr32 registers for the user alone" run regsvr32 /s /n /i:user "$dll"
verdict "regsvr32 takes the user's registration back" run regsvr32 /s /u /n /i:user "$dll"
exit "$failed"
