#!/usr/bin/env bash
# What goes wrong around the extension: bad input, documents and the program going away. Prints a line "ok NAME" or
# "not ok NAME" a test.
. "$(dirname "$0")/../../../script/lib/common.sh"
. "$root/script/lib/office.sh"
. "$root/script/lib/display.sh"

folder=$root/tests/libreoffice/badinput
desk=$root/build/office/badinput-desk
rm -rf "$desk"
mkdir -p "$desk"
# The library's own settings and logs are not the user's.
export XDG_CONFIG_HOME=$desk/settings
cd "$desk"

prepare_office badinput "$desk" "$root/build/native/pellora.oxt" || fail "the extension could not be installed"
start_display
start_window_manager
launch_office
timeout -k 5 150 "$office_python" "$folder/badinput.py" "$office_pipe" "$office_pid" "$desk" || echo "not ok ran to its end"
# The last test left a dialog open: what the session's end does to a program.
kill -TERM -- "-$office_pid" 2>/dev/null || true
if until_true 15 _office_ended; then
  office_pid=
  echo "ok the program ends when it is told to while a dialog is open"
else
  echo "not ok the program ends when it is told to while a dialog is open"
fi
