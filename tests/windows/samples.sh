#!/usr/bin/env bash
# The samples: the script clients on the embedded workbook with a user at the dialogs, the VBA module in the Basic of
# another spreadsheet program, which reads the same language.
. "$(dirname "$0")/lib.sh"

workbook=$root/samples/quotes.xlsx
sheet=$(python3 "$root/script/lib/demo_check.py" target "$workbook")

# sample NAME EXPECTED_LINE...: plays samples/NAME and compares what it prints.
sample() {
  local name=$1 player
  shift
  no_settings
  timeout -k 5 90 python3 "$root/tests/windows/plays.py" sample "$built/probe.exe" >"$desk/$name.play" &
  player=$!
  run_wine 90 cscript //nologo "$(windows_path "$root/samples/$name")" "$(windows_path "$workbook")" \
    PelloraWorkbook.Application "$sheet!\$F\$40" "$(windows_path "$desk/$name.xlsx")" 2>/dev/null |
    tr -d '\r' >"$desk/$name.out" || true
  printf '%s\n' "$@" >"$desk/$name.expected"
  if wait "$player" && diff -u "$desk/$name.expected" "$desk/$name.out" >"$desk/$name.diff"; then
    echo "ok $name shows every dialog and gets the answers"
  else
    cat "$desk/$name.play"
    echo "not ok $name shows every dialog and gets the answers: $(grep -E '^[-+][^-+]' "$desk/$name.diff" | tr '\n' ';')"
  fi
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

sample client.vbs "fields: 0 0 0 0 0 0 0 0 0 1" "instrument: ABC STK   0 SMART NYSE USD" "instruments: finished" \
  "tape: DATABEGINNING" "place: $sheet!\$F\$40" "tape: CLOSE" "done"
sample client.js "fields: true" "instrument: 4" "instrument: 2" \
  "tape: DATABEGINNING" "place: $sheet!\$F\$40" "tape: CLOSE" "done"

python3 "$root/tests/windows/vba.py" "$root/samples/Pellora.bas" "$desk/basic"
