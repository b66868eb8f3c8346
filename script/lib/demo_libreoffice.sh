# The demo in LibreOffice, with the extension; to be sourced by script/demo.
. "$root/script/lib/display.sh"
. "$root/script/lib/demo_files.sh"

say "The host is LibreOffice, with the extension: building it"
build libreoffice oxt || fail "the build failed"

desk=$root/build/demo-libreoffice
rm -rf "$desk"
mkdir -p "$desk"
open_folder "$root/out/demo/libreoffice"
name=$(basename "$workbook") ending=${workbook##*.}
copy=$(free_name "$out/${name%.*}" "$ending").$ending
cp "$workbook" "$copy"
chmod u+w "$copy"
note_made "$copy"
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
  office_look=${SAL_USE_VCLPLUGIN:-} launch_office "$copy"
  wait "$office_pid" || true
  say "script/demo: done in LibreOffice; the workbook is ${copy#"$root"/}"
  exit 0
fi

start_display 1600x1200
start_window_manager
say "Playing on a virtual display"
result=$(free_name "$out/result" ods xlsx)
launch_office "$copy"
timeout -k 5 240 "$office_python" "$root/script/lib/demo_office.py" "$office_pipe" "$out" "$result" ||
  fail "the play broke off; its calls are in ${out#"$root"/}/calls.txt"
timeout -k 5 60 "$office_python" "$root/script/lib/office_check.py" "$office_pipe" "$workbook" "$result".{ods,xlsx} ||
  fail "the workbook is not as it should be"
say "script/demo: done in LibreOffice; $(find "$out" -maxdepth 1 -name '*.png' | wc -l) pictures, ${result##*/}.ods, ${result##*/}.xlsx and calls.txt are in ${out#"$root"/}/"
