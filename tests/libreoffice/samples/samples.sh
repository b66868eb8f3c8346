#!/usr/bin/env bash
# The samples in LibreOffice: the workbooks and the extension hold the module as it is, its procedures run from each, and
# a user sets up tapes through the menu, by real keys and the mouse. Prints a line "ok NAME", "not ok NAME" or "skip NAME"
# a test. A program of its own: it has its own display and profile.
. "$(dirname "$0")/../../../script/lib/common.sh"
. "$root/script/lib/display.sh"
. "$root/script/lib/office.sh"

extension=$root/build/native/pellora.oxt
if ! can_run_office || [[ ! -f $extension ]]; then
  echo "skip the samples in LibreOffice (it is not installed, or its extension not built)"
  exit 0
fi

desk=$root/build/samples-office
rm -rf "$desk"
mkdir -p "$desk"
cp samples/Pellora.{ods,xlsm} samples/quotes.xlsx "$desk"
if ! prepare_office samples-test "$desk" "$extension" "$root/samples/PelloraMacros.oxt"; then
  echo "not ok the extensions are added to a profile of a first run"
  exit 0
fi

start_display 1600x1200
start_window_manager
export XDG_CONFIG_HOME=$desk/settings
cd "$desk"
launch_office "$desk/Pellora.xlsm"
timeout -k 5 120 "$office_python" "$root/tests/libreoffice/samples/samples.py" "$office_pipe" "$root/samples" "$desk" ||
  echo "not ok the tests of the samples ran to their end"
