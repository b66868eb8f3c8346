#!/usr/bin/env bash
# The archive to hand out: made twice, and installed, checked, used and removed in a Wine prefix of its own. With
# PELLORA_ARCHIVE it is that one, and none is made; with PELLORA_MAKE_ONLY it is made, kept under that name, and not
# used. Where Wine runs both bitnesses, so does this.
. "$(dirname "$0")/../../script/lib/common.sh"
. "$root/script/lib/display.sh"
. "$root/script/lib/wine.sh"

built=${PELLORA_BUILD:-$root/build/win64}
desk=$root/build/clients/package
rm -rf "$desk"
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
  archive=out/Pellora-$(project_version).zip
  cp "$archive" "$desk/first.zip"
  find build/win64 build/win32 \( -name 'Pellora.dll' -o -name '*.tlb' -o -name 'Pellora.rc.*' \) -delete
  find build/win64 build/win32 -name 'Exports.cpp.obj' -delete
  until_true 5 test "$(date +%s)" -gt "$(( $(stat -c %Y "$desk/first.zip") + 1 ))"
  script/package || return 1
  cmp "$archive" "$desk/first.zip"
}
if [[ -n ${PELLORA_ARCHIVE:-} ]]; then
  cp "$PELLORA_ARCHIVE" "$desk/first.zip"
else
  verdict "two builds make the same archive, byte for byte" make_twice
fi
if [[ -n ${PELLORA_MAKE_ONLY:-} ]]; then
  cp "$desk/first.zip" "$PELLORA_MAKE_ONLY"
  exit
fi

[[ -n ${PELLORA_WINE_RUNS:-} ]] || start_display
start_new_wine package
python3 -m zipfile -e "$desk/first.zip" "$desk/My downloads"
home=$WINEPREFIX/drive_c/users/$(id -un)/AppData/Local/Pellora

# batch FILE: runs a script of the archive in a folder of nobody's; what it says is in said.txt. Ends with its code.
batch() { (cd "$desk/nobody" && run_wine 60 cmd /c "$(windows_path "$1")" /quiet 2>/dev/null | tr -d '\r' >"$desk/said.txt"); }
ends_with() { local code=0; batch "$2" || code=$?; (( code == $1 )); }
says() { cat "$desk/said.txt"; grep -qF -- "$1" "$desk/said.txt"; }
classes() { run_wine 30 reg query 'HKCU\Software\Classes' /s 2>/dev/null | tr -d '\r'; }
# Whether the prefix runs 32-bit programs too, which have a registration and a library of their own.
narrow=$WINEPREFIX/drive_c/windows/syswow64
bitnesses=(64)
[[ ! -f $narrow/regsvr32.exe ]] || bitnesses=(64 32)
# A key that is always there: where it is not listed the registry was not asked at all.
known=Known.Class
for hive in HKCU HKLM; do run_wine 30 reg add "$hive\\Software\\Classes\\$known" /f >/dev/null 2>&1; done
no_classes() {
  local listed
  listed=$(classes)
  grep -F "$known" <<<"$listed" && ! grep -i -e pellora -e 2eabe3a4 -e d5c30e2c <<<"$listed"
}

verdict "removing what was never installed is no failure" ends_with 0 "$desk/My downloads/uninstall.cmd"
verdict "the check says that nothing is registered" ends_with 1 "$desk/My downloads/check.cmd"
verdict "and what to do about it" says "64-bit: not registered. Run install.cmd"

# in_place_of TOOL COMMAND...: with the obstacle in the place of that program of the system's.
in_place_of() {
  local tool=$1 folder status=0
  shift
  # Wine would take its own in spite of the file.
  local -x WINEDLLOVERRIDES="$WINEDLLOVERRIDES;$tool=n"
  for folder in "$WINEPREFIX/drive_c/windows/system32" "$narrow"; do
    [[ ! -f $folder/$tool ]] || { mv "$folder/$tool" "$folder/$tool.kept" && cp "$built/obstacle.exe" "$folder/$tool"; }
  done
  "$@" || status=$?
  for folder in "$WINEPREFIX/drive_c/windows/system32" "$narrow"; do
    [[ ! -f $folder/$tool.kept ]] || mv -f "$folder/$tool.kept" "$folder/$tool"
  done
  return "$status"
}
beside_excel() { in_place_of tasklist.exe "$@"; }
verdict "installing beside a running Excel is put off" beside_excel ends_with 2 "$desk/My downloads/install.cmd"
verdict "and the user is told what to do" says "Excel is running, and nothing was changed. Save your work, close Excel"
verdict "nothing was changed then" test ! -e "$home"
export OBSTACLE_NAME=excel.exe
verdict "a running Excel is known by its name in small letters too" beside_excel ends_with 2 "$desk/My downloads/install.cmd"
unset OBSTACLE_NAME

cp -r "$desk/My downloads" "$desk/Half"
rm "$desk/Half/win64/Pellora.dll"
verdict "installing from half an archive fails" ends_with 1 "$desk/Half/install.cmd"
verdict "and says what is missing" says 'win64\Pellora.dll is not beside install.cmd, and nothing was changed.'
verdict "and registers nothing" no_classes
verdict "and copies nothing" test ! -e "$home"

interface='Software\Classes\Interface\{D5C30E2C-C1A0-4C1C-AAA4-39D9A7DD5ADA}'
run_wine 30 reg add "HKCU\\${interface%\\*}" /f >/dev/null 2>&1 # the keys above it are to last
run_wine 30 "$built/obstacle.exe" "$interface"
verdict "installing fails where the registry refuses a key" ends_with 1 "$desk/My downloads/install.cmd"
verdict "and says which" says "$interface"
verdict "and takes back what was registered" no_classes
run_wine 30 reg delete "HKCU\\${interface%\\*}" /f >/dev/null 2>&1

verdict "installing succeeds" ends_with 0 "$desk/My downloads/install.cmd"
verdict "and says where the library is" says "Pellora is installed for you, in "
classes | sed "/$known\$/,/^\$/d" >"$desk/classes.txt"
python3 "$root/tests/windows/listed.py" "$root/docs/administrators.md" "$desk/classes.txt" "$home" user "${bitnesses[@]}"
verdict "installing once more succeeds" ends_with 0 "$desk/My downloads/install.cmd"

cp "$desk/first.zip" "$desk/Half/win64/Pellora.dll" # another version
rm "$desk/Half/win32/Pellora.dll"
verdict "installing from another half fails as well" ends_with 1 "$desk/Half/install.cmd"
verdict "and leaves what is installed" cmp "$desk/My downloads/win64/Pellora.dll" "$home/win64/Pellora.dll"

ln -sf /nowhere/at/all "$home/check.vbs"
verdict "a file that cannot be copied is a failure" ends_with 1 "$desk/My downloads/install.cmd"
verdict "and it is named" says "(check.vbs)"
rm "$home/check.vbs"

# The keys are left alone with part of the files, or with spoilt ones.
no_files() { [[ -z $(find "$home" -type f 2>/dev/null) ]]; }
nothing_left() { no_files && no_classes; }
install_anew() { batch "$desk/My downloads/install.cmd"; }
install_anew
for bits in "${bitnesses[@]}"; do
  rm "$home/win$bits/Pellora.dll"
  verdict "without its $bits-bit library the archive removes it" ends_with 0 "$desk/My downloads/uninstall.cmd"
  verdict "and no file and no key is left" nothing_left
  install_anew
  rm "$home/win$bits/Pellora.dll"
  verdict "without its $bits-bit library it removes itself" ends_with 0 "$home/uninstall.cmd"
  verdict "and nothing is left then" nothing_left
  install_anew
done
rm -r "$home"
verdict "without its folder the archive removes it" ends_with 0 "$desk/My downloads/uninstall.cmd"
verdict "and no key is left then" no_classes
install_anew
cp "$desk/first.zip" "$home/win64/Pellora.dll"
verdict "a key that cannot be deleted is a failure" in_place_of reg.exe ends_with 1 "$home/uninstall.cmd"
verdict "and it is said which" says 'Software\Classes\Interface\{D5C30E2C-C1A0-4C1C-AAA4-39D9A7DD5ADA}'
verdict "and the files stay" test -e "$home/uninstall.cmd"
verdict "a library that does not load is removed all the same" ends_with 0 "$home/uninstall.cmd"
verdict "and leaves nothing" nothing_left
install_anew
(wine "$built/obstacle.exe" hold "$(windows_path "$home/win64/Pellora.dll")" </dev/null >"$desk/held.txt" 2>/dev/null) &
until_true 20 grep -q held "$desk/held.txt" || true
verdict "removing what a program uses is a failure" ends_with 1 "$desk/My downloads/uninstall.cmd"
verdict "and the user is told what to do about that" says "Close all programs that use Pellora, and run uninstall.cmd again."
run_wine 30 taskkill /f /im obstacle.exe >/dev/null 2>&1 || true
wait $! || true
verdict "removing it later succeeds" ends_with 0 "$desk/My downloads/uninstall.cmd"
verdict "and there is nothing left" nothing_left
install_anew
batch "$home/check.cmd" || true
verdict "the check says that the library is registered for the user" says "64-bit: registered for you"
verdict "the check of a computer without scripts has a code of its own" in_place_of cscript.exe ends_with 3 "$home/check.cmd"
verdict "and says what it cannot find out, and why" says "64-bit: not checked, because this computer does not run VBScript"
verdict "removing beside a running Excel is put off" beside_excel ends_with 2 "$home/uninstall.cmd"
export OBSTACLE_NAME=excel.exe
verdict "and by its name in small letters too" beside_excel ends_with 2 "$home/uninstall.cmd"
unset OBSTACLE_NAME
verdict "and leaves everything" test -e "$home/win64/Pellora.dll"

# regsvr BITS ARGUMENT...: the regsvr32 of that bitness, silently.
regsvr() {
  local tools=system32
  [[ $1 == 64 ]] || tools=syswow64
  shift
  run_wine 60 "C:\\windows\\$tools\\regsvr32.exe" /s "$@"
}
# own_path FOLDER: the library there, as install.cmd names it.
own_path() { windows_path "$home/$1/Pellora.dll" | sed 's/^Z:.*drive_c/C:/'; }
# Our classes of the machine, and of its 32-bit programs.
machine_classes() {
  local classes='HKLM\Software\Classes' key
  local ids=('CLSID\{E6F41B9B-E88E-46C2-92C4-54BC6EC07D61}' 'Interface\{D5C30E2C-C1A0-4C1C-AAA4-39D9A7DD5ADA}')
  for key in "${ids[@]}" "${ids[@]/#/Wow6432Node\\}" 'TypeLib\{2EABE3A4-0BFF-4B7F-8DDF-75618E559BE8}' \
    Pellora.cPellora Pellora.cPellora.1; do
    run_wine 30 reg query "$classes\\$key" /s 2>/dev/null | tr -d '\r' || true
  done
}
# All of the machine's classes at once: that many questions, one a key, could each stay without an answer.
no_machine_classes() {
  rm -f "$desk/all.reg"
  run_wine 60 reg export 'HKLM\Software\Classes' "$(windows_path "$desk/all.reg")" /y >/dev/null 2>&1
  iconv -f UTF-16 -t UTF-8 "$desk/all.reg" >"$desk/all.txt" || return 1
  grep -F "$known" "$desk/all.txt" && ! grep -i -e 'Pellora\.cPellora' -e e6f41b9b -e 2eabe3a4 -e d5c30e2c "$desk/all.txt"
}

# Wine does not look at a user's classes: the same keys, put under the machine's, must do. It has but one place for a
# user's classes of both bitnesses: the 64-bit one goes there once more, the 32-bit one is registered for the machine.
regsvr 64 /n /i:user "$(own_path win64)"
run_wine 30 reg export 'HKCU\Software\Classes' "$(windows_path "$desk/user.reg")" /y >/dev/null 2>&1
python3 - "$desk/user.reg" "$desk/machine.reg" <<'PYTHON'
import sys
text = open(sys.argv[1], encoding="utf-16", newline="").read()
open(sys.argv[2], "w", encoding="utf-16", newline="").write(text.replace("[HKEY_CURRENT_USER", "[HKEY_LOCAL_MACHINE"))
PYTHON
run_wine 30 reg import "$(windows_path "$desk/machine.reg")" >/dev/null 2>&1
[[ ${bitnesses[*]} == 64 ]] || regsvr 32 "$(own_path win32)"
machine_classes >"$desk/machine.txt"
python3 "$root/tests/windows/listed.py" "$root/docs/administrators.md" "$desk/machine.txt" "$home" machine \
  "${bitnesses[@]}"
verdict "with these keys for the machine the check is content" ends_with 0 "$home/check.cmd"
verdict "and says that the library loads" says "64-bit: registered for you, and it loads."
mv "$home/win64/Pellora.dll" "$desk/kept.dll"
verdict "a library whose file is gone is a fault for the check" ends_with 1 "$home/check.cmd"
verdict "and it says so" says "64-bit: registered for you, but its file is gone: "
cp "$desk/first.zip" "$home/win64/Pellora.dll"
verdict "a library that does not load is a fault for the check" ends_with 1 "$home/check.cmd"
verdict "and it says so too" says "64-bit: registered for you, but it does not load ("
cp "$desk/kept.dll" "$home/win64/Pellora.dll"
register "$built/PelloraWorkbook.dll"
timeout -k 5 90 python3 "$root/tests/windows/plays.py" sample "$built/probe.exe" >"$desk/play.txt" &
player=$!
(cd "$desk" && run_wine 90 cscript //nologo "$(windows_path "$desk/My downloads/samples/client.vbs")" \
  "$(windows_path "$desk/My downloads/samples/quotes.xlsx")" PelloraWorkbook.Application 'Desk!$F$40' \
  "$(windows_path "$desk/saved.xlsx")" 2>/dev/null | tr -d '\r' >"$desk/said.txt") || true
verdict "the archive's client shows the dialogs of the installed library" wait "$player"
verdict "and comes to its end" says "done"
for bits in "${bitnesses[@]}"; do regsvr "$bits" /u "$(windows_path "$home/win$bits/Pellora.dll")" || true; done
verdict "the machine's registration is taken back as the administrators' page says" no_machine_classes

verdict "the installed copy removes itself" ends_with 0 "$home/uninstall.cmd"
verdict "and says so" says "Pellora is removed."
verdict "no file is left" no_files
verdict "no key is left" no_classes
# Wine keeps the folder in which a script runs.
verdict "removing once more finds nothing to do" ends_with 0 "$desk/My downloads/uninstall.cmd"
verdict "and leaves no folder" test ! -e "$home"
