#!/usr/bin/env bash
# The samples: the script clients on the embedded workbook with a user at the dialogs, the VBA module in the Basic of
# another spreadsheet program, which reads the same language.
. "$(dirname "$0")/lib.sh"

workbook=$root/samples/quotes.xlsx
sheet=$(python3 "$root/script/lib/demo_check.py" target "$workbook")

# sample NAME PLAY RANGE WHAT EXPECTED_LINE...: plays samples/NAME with the range handed to it, none for a user who is
# asked for it, and compares what it prints. WHAT says which of its ways that is.
sample() {
  local name=$1 play=$2 range=$3 what=$4 player
  shift 4
  no_settings
  rm -f "$desk/$name.diff" "$desk/$name.xlsx"
  timeout -k 5 90 python3 "$root/tests/windows/plays.py" "$play" "$built/probe.exe" >"$desk/$name.play" &
  player=$!
  run_wine 90 cscript //nologo "$(windows_path "$root/samples/$name")" "$(windows_path "$workbook")" \
    PelloraWorkbook.Application "$range" "$(windows_path "$desk/$name.xlsx")" 2>/dev/null |
    tr -d '\r' >"$desk/$name.out" || true
  printf '%s\n' "$@" >"$desk/$name.expected"
  if wait "$player" && diff -u "$desk/$name.expected" "$desk/$name.out" >"$desk/$name.diff"; then
    echo "ok $name shows every dialog and gets the answers $what"
  else
    cat "$desk/$name.play"
    echo "not ok $name shows every dialog and gets the answers $what: $(grep -E '^[-+][^-+]' "$desk/$name.diff" | tr '\n' ';')"
  fi
}

# framed NAME: whether the workbook that samples/NAME has left has the tape.
framed() {
  local name=$1
  if python3 - "$root/script/lib" "$desk/$name.xlsx" "$sheet" <<'PYTHON'; then
import sys
sys.path.insert(0, sys.argv[1])
from xlsx import Workbook
sheet = Workbook(sys.argv[2]).sheets[sys.argv[3]]
sys.exit(sheet.value("F40") != "Local Time" or not sheet.borders("F40"))
PYTHON
    echo "ok $name leaves a framed tape in the workbook"
  else
    echo "not ok $name leaves a framed tape in the workbook"
  fi
}

# usage NAME: started without anything, the sample says how it is started.
usage() {
  local status=0
  run_wine 30 cscript //nologo "$(windows_path "$root/samples/$1")" 2>/dev/null | tr -d '\r' >"$desk/$1.usage" || status=$?
  if (( status == 1 )) && grep -qx "usage: cscript $1 WORKBOOK .*" "$desk/$1.usage"; then
    echo "ok $1 without a workbook says how it is used and fails"
  else
    echo "not ok $1 without a workbook says how it is used and fails ($status: $(cat "$desk/$1.usage"))"
  fi
}

place=$sheet'!$F$40'
vbs=("fields: 0 0 0 0 0 0 0 0 0 1" "instrument: ABC STK   0 SMART NYSE USD" "instruments: finished")
js=("fields: true" "instrument: 4" "instrument: 2")
tape=("tape: DATABEGINNING" "place: $place" "tape: CLOSE" "done")
sample client.vbs sample "$place" "with a range" "${vbs[@]}" "${tape[@]}"
framed client.vbs
sample client.js sample "$place" "with a range" "${js[@]}" "${tape[@]}"
framed client.js

export PELLORA_PICK=$place
quoted=("tape: DATABEGINNING" "place: '$sheet'!\$F\$40" "tape: CLOSE" "done")
sample client.vbs sample "" "when the user picks the range" "${vbs[@]}" "${quoted[@]}"
framed client.vbs
sample client.js sample "" "when the user picks the range" "${js[@]}" "${quoted[@]}"
framed client.js
unset PELLORA_PICK
none=("tape: DATABEGINNING" "place: " "tape: CLOSE" "done")
sample client.vbs sample_unpicked "" "when the user picks none" "${vbs[@]}" "${none[@]}"
sample client.js sample_unpicked "" "when the user picks none" "${js[@]}" "${none[@]}"
usage client.vbs
usage client.js

python3 "$root/tests/windows/vba.py" "$root/samples/Pellora.bas" "$desk/basic"
