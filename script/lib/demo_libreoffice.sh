# The demo in LibreOffice, with the extension; to be sourced by script/demo.
. "$root/script/lib/display.sh"

say "The host is LibreOffice, with the extension: building it"
build libreoffice oxt || fail "the build failed"

out=$root/out/demo/libreoffice
desk=$root/build/demo-libreoffice
rm -rf "$out" "$desk"
mkdir -p "$out" "$desk"
result=$out/$(basename "$workbook")
cp "$workbook" "$result"
chmod u+w "$result"
prepare_office demo "$out" "$root/build/native/pellora.oxt" "$root/samples/PelloraMacros.oxt" ||
  fail "the extension cannot be added: see build/logs/office-demo.log"

# The person's own lists and window positions are left alone, and a log of errors has a folder of its own.
export XDG_CONFIG_HOME=$desk/settings
cd "$desk"

if [[ -z $auto ]]; then
  say "Four macros: the buttons above the sheet \"Desk\", and in every workbook the menu \"Pellora\" of the window:"
  say "  choose fields, add instruments, set up tapes (\"...\" lets you pick the place in the sheet), let the library go"
  say "The workbook is a copy. Save it to keep it; close the window to end."
  # The person's own look of windows.
  office_look=${SAL_USE_VCLPLUGIN:-} launch_office "$result"
  wait "$office_pid" || true
  say "script/demo: done in LibreOffice; the workbook is ${result#"$root"/}"
  exit 0
fi

start_display 1600x1200
start_window_manager
say "Playing on a virtual display"
launch_office "$result"
timeout -k 5 240 "$office_python" "$root/script/lib/demo_office.py" "$office_pipe" "$out" ||
  fail "the play broke off; its calls are in ${out#"$root"/}/calls.txt"
timeout -k 5 60 "$office_python" "$root/script/lib/office_check.py" "$office_pipe" "$workbook" "$out"/result.{ods,xlsx} ||
  fail "the workbook is not as it should be"
say "script/demo: done in LibreOffice; $(find "$out" -name '*.png' | wc -l) pictures, result.ods, result.xlsx and calls.txt are in ${out#"$root"/}/"
