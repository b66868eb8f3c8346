# The demo on the embedded workbook, with the Windows library under Wine; to be sourced by script/demo.
. "$root/script/lib/display.sh"
. "$root/script/lib/wine.sh"
. "$root/script/lib/demo_files.sh"

say "The host is the embedded workbook, with the Windows library under Wine: building both"
build win64 Pellora PelloraWorkbook probe ask || fail "the build failed"

desk=$root/build/demo
rm -rf "$desk"
mkdir -p "$desk"
open_folder "$root/out/demo"
name=$(basename "$workbook")
result=$(free_name "$out/${name%.*}" xlsx).xlsx

# The scripts of a run, and what the library leaves in the current folder, have a folder of their own. A failure of the
# library shows in its error dialog, which ends a play at once.
start_demo() {
  on_one_core 0
  start_wine demo
  register build/win64/Pellora.dll build/win64/PelloraWorkbook.dll
  cd "$desk"
}

# macro SECONDS STEPS RESULT [RANGE...]: runs the macro's side; its lines go to calls.txt.
macro() {
  local seconds=$1 steps=$2 saved=$3
  shift 3
  local lines=$desk/lines
  run_wine "$seconds" cscript //nologo "$(windows_path "$root/samples/demo.vbs")" "$(windows_path "$workbook")" \
    "$(windows_path "$saved")" "$steps" "$@" 2>/dev/null | tr -d '\r' | tee "$lines" | sed '/^done$/d' >>"$out/calls.txt"
  # The script engine ends with success whatever happened in the script.
  [[ $(tail -n 1 "$lines") == "done" ]]
}

if [[ -z $auto ]]; then
  export PELLORA_ASK
  PELLORA_ASK=$(windows_path build/win64/ask.exe)
  start_demo
  # Under the user's own window manager the windows are ordinary ones.
  set_user_value 'Software\Wine\X11 Driver' Managed REG_SZ Y
  say "The dialogs come one after the other: project, instruments, ticker tapes"
  macro 86400 project,symbols,tape "$result" || fail "the script broke off; its calls are in out/demo/calls.txt"
  say "script/demo: done on the embedded workbook; the result is ${result#"$root"/}, the calls are in out/demo/calls.txt"
  exit 0
fi

start_display 1600x1200
start_demo
set_user_value 'Software\Wine\X11 Driver' Managed REG_SZ N
PELLORA_OUT=$out PELLORA_PROBE=$root/build/win64/probe.exe
export PELLORA_OUT PELLORA_PROBE
target=$(python3 "$root/script/lib/demo_check.py" target "$workbook")

# played NAME DPI STEPS RESULT [RANGE...]: the macro and its player side by side; both must end well.
played() {
  local name=$1 dpi=$2
  shift 2
  set_dpi "$dpi"
  # Every play finds the registry of a first run.
  run_wine 30 reg delete 'HKCU\Software\CORVANE' /f >/dev/null 2>&1 || true
  macro 240 "$@" &
  local script=$! status=0
  timeout -k 5 230 python3 "$root/script/lib/demo_play.py" "$name" "$dpi" "$target" || status=$?
  if (( status != 0 )); then
    # Nobody answers the dialogs any more.
    kill "$script" 2>/dev/null || true
    fail "the play '$name' broke off"
  fi
  wait "$script" || fail "the script of '$name' broke off; its calls are in out/demo/calls.txt"
}

say "Playing on a virtual display"
played work 96 project,symbols,tape,look "$result" "$target!K30:M50"
played looks 96 project,symbols,tape "$desk/unchanged.xlsx"
played looks 144 project,symbols,tape "$desk/unchanged.xlsx"
set_dpi 96

python3 "$root/script/lib/demo_check.py" result "$workbook" "$result" "$target" || fail "the workbook is not as it should be"
say "script/demo: done on the embedded workbook; $(find "$out" -maxdepth 1 -name '*.png' | wc -l) pictures, ${result#"$root"/} and calls.txt are in out/demo/"
