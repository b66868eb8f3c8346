#!/usr/bin/env bash
# The dialogs as a script client calls them and a user answers them, with real keys and clicks. The library reports a
# failure in a dialog and nowhere else: one that comes up ends the play, and the client that waits for it by its time.
. "$(dirname "$0")/lib.sh"

no_settings
played_client references.vbs 90 references

# What a first run has left, with one stock and one option inserted.
run_wine 30 reg query 'HKCU\Software\CORVANE' /s 2>/dev/null | tr -d '\r' |
  sed -n -e 's/^HKEY_CURRENT_USER/HKCU/p' -e 's/^    \([^ ].*[^ ]\)    \(REG_[A-Z]*\)    \(.*\)$/  \1 \2 \3/p' |
  sed -E 's/^(  (WindowState|(Min|Max)Pos[XY]|NormalPos[A-Za-z]+) REG_SZ) -?[0-9]+$/\1 number/' >registry.txt
if diff -u "$clients/first-run.txt" registry.txt >registry.diff; then
  echo "ok the registry holds exactly the keys of the types saved"
else
  echo "not ok the registry holds exactly the keys of the types saved: $(grep -E '^[-+] ' registry.diff | tr '\n' ';')"
fi

workbook=$root/samples/quotes.xlsx
sheet=$(python3 "$root/script/lib/demo_check.py" target "$workbook")
played_client roundtrip.js 90 roundtrip "$(windows_path "$workbook")" "$sheet" "$(windows_path "$desk/saved.xlsx")"
