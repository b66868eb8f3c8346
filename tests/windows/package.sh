#!/usr/bin/env bash
# The archive to hand out: made twice, and installed, checked, used and removed in a Wine prefix of its own.
. "$(dirname "$0")/../../script/lib/common.sh"
. "$root/script/lib/display.sh"
. "$root/script/lib/wine.sh"

built=${PELLORA_BUILD:-$root/build/win64}
desk=$root/build/clients/package
rm -rf "$desk" "$root/build/wine-package"
mkdir -p "$desk/nobody"

# verdict NAME COMMAND...: a line for whether the command succeeds.
verdict() {
  local name=$1
  shift
  if "$@" >>"$desk/log.txt" 2>&1; then echo "ok $name"; else echo "not ok $name"; fi
}

# The libraries are linked and described anew in between, two seconds later by any clock.
make_twice() {
  script/package || return 1
  archive=$(ls out/Pellora-*.zip)
  cp "$archive" "$desk/first.zip"
  find build/win64 build/win32 \( -name 'Pellora.dll' -o -name '*.tlb' -o -name 'Pellora.rc.*' \) -delete
  find build/win64 build/win32 -name 'Exports.cpp.obj' -delete
  until_true 5 test "$(date +%s)" -gt "$(( $(stat -c %Y "$desk/first.zip") + 1 ))"
  script/package || return 1
  cmp "$archive" "$desk/first.zip"
}
verdict "two builds make the same archive, byte for byte" make_twice

[[ -n ${PELLORA_WINE_RUNS:-} ]] || start_display
start_wine package
python3 -m zipfile -e "$desk/first.zip" "$desk/My downloads"
home=$WINEPREFIX/drive_c/users/$(id -un)/AppData/Local/Pellora

# batch FILE: runs a script of the archive in a folder of nobody's; what it says is in said.txt. Ends with its code.
batch() { (cd "$desk/nobody" && run_wine 60 cmd /c "$(windows_path "$1")" /quiet 2>/dev/null | tr -d '\r' >"$desk/said.txt"); }
ends_with() { local code=0; batch "$2" || code=$?; (( code == $1 )); }
says() { cat "$desk/said.txt"; grep -qF -- "$1" "$desk/said.txt"; }
classes() { run_wine 30 reg query 'HKCU\Software\Classes' /s 2>/dev/null | tr -d '\r'; }
no_classes() { [[ -z $(classes | grep -i -e pellora -e 2eabe3a4 -e d5c30e2c) ]]; }

verdict "removing what was never installed is no failure" ends_with 0 "$desk/My downloads/uninstall.cmd"
verdict "the check says that nothing is registered" ends_with 1 "$desk/My downloads/check.cmd"
verdict "and what to do about it" says "64-bit: not registered. Run install.cmd"

# beside_excel COMMAND...: with a list of programs as it is while Excel runs.
beside_excel() {
  local list=$WINEPREFIX/drive_c/windows/system32/tasklist.exe status=0
  # Wine would take its own in spite of the file.
  local -x WINEDLLOVERRIDES="$WINEDLLOVERRIDES;tasklist.exe=n"
  cp "$list" "$desk/tasklist.exe"
  cp "$built/obstacle.exe" "$list"
  "$@" || status=$?
  cp "$desk/tasklist.exe" "$list"
  return "$status"
}
verdict "installing beside a running Excel is put off" beside_excel ends_with 2 "$desk/My downloads/install.cmd"
verdict "and the user is told what to do" says "Excel is running, and nothing was changed. Save your work, close Excel"
verdict "nothing was changed then" test ! -e "$home"

cp -r "$desk/My downloads" "$desk/Half"
rm "$desk/Half/win64/Pellora.dll"
verdict "installing from half an archive fails" ends_with 1 "$desk/Half/install.cmd"
verdict "and says so" says "The files could not be copied"
verdict "and registers nothing" no_classes

interface='Software\Classes\Interface\{D5C30E2C-C1A0-4C1C-AAA4-39D9A7DD5ADA}'
run_wine 30 reg add "HKCU\\${interface%\\*}" /f >/dev/null 2>&1 # the keys above it are to last
run_wine 30 "$built/obstacle.exe" "$interface"
verdict "installing fails where the registry refuses a key" ends_with 1 "$desk/My downloads/install.cmd"
verdict "and says which" says "$interface"
verdict "and takes back what was registered" no_classes
run_wine 30 reg delete "HKCU\\${interface%\\*}" /f >/dev/null 2>&1

verdict "installing succeeds" ends_with 0 "$desk/My downloads/install.cmd"
verdict "and says where the library is" says "Pellora is installed for you, in "
classes >"$desk/classes.txt"
python3 "$root/tests/windows/listed.py" "$root/docs/administrators.md" "$desk/classes.txt" "$home"
verdict "installing once more succeeds" ends_with 0 "$desk/My downloads/install.cmd"
batch "$home/check.cmd" || true
verdict "the check says that the library is registered for the user" says "64-bit: registered for you"
verdict "removing beside a running Excel is put off" beside_excel ends_with 2 "$home/uninstall.cmd"
verdict "and leaves everything" test -e "$home/win64/Pellora.dll"

# Wine does not look at a user's classes: the same keys, put under the machine's, must do.
run_wine 30 reg export 'HKCU\Software\Classes' "$(windows_path "$desk/user.reg")" /y >/dev/null 2>&1
python3 - "$desk/user.reg" "$desk/machine.reg" <<'PYTHON'
import sys
text = open(sys.argv[1], encoding="utf-16", newline="").read()
open(sys.argv[2], "w", encoding="utf-16", newline="").write(text.replace("[HKEY_CURRENT_USER", "[HKEY_LOCAL_MACHINE"))
PYTHON
run_wine 30 reg import "$(windows_path "$desk/machine.reg")" >/dev/null 2>&1
verdict "with these keys for the machine the check is content" ends_with 0 "$home/check.cmd"
verdict "and says that the library loads" says "and it loads."
register "$built/PelloraWorkbook.dll"
timeout -k 5 90 python3 "$root/tests/windows/plays.py" sample "$built/probe.exe" >"$desk/play.txt" &
player=$!
(cd "$desk" && run_wine 90 cscript //nologo "$(windows_path "$desk/My downloads/samples/client.vbs")" \
  "$(windows_path "$desk/My downloads/samples/quotes.xlsx")" PelloraWorkbook.Application 'Desk!$F$40' \
  "$(windows_path "$desk/saved.xlsx")" 2>/dev/null | tr -d '\r' >"$desk/said.txt") || true
verdict "the archive's client shows the dialogs of the installed library" wait "$player"
verdict "and comes to its end" says "done"
run_wine 60 regsvr32 /s /u "$(windows_path "$home/win64/Pellora.dll")" || true

verdict "the installed copy removes itself" ends_with 0 "$home/uninstall.cmd"
verdict "and says so" says "Pellora is removed."
no_files() { [[ -z $(find "$home" -type f 2>/dev/null) ]]; }
verdict "no file is left" no_files
verdict "no key is left" no_classes
# Wine keeps the folder in which a script runs.
verdict "removing once more finds nothing to do" ends_with 0 "$desk/My downloads/uninstall.cmd"
verdict "and leaves no folder" test ! -e "$home"
