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

# play [WORD]: starts the program and plays its user.
play() {
  launch_office
  timeout -k 5 300 "$office_python" "$folder/badinput.py" "$office_pipe" "$office_pid" "$desk" "$@" || echo "not ok ran to its end"
}

# ended NAME [STATUS]: a test whether the program ends, and of itself: a crash has another status.
ended() {
  local status=0 result=ok
  if until_true 30 _office_ended; then wait "$office_pid" || status=$?; else status=alive; fi
  [[ $status == "${2:-0}" ]] || result="not ok"
  [[ $status == alive ]] || office_pid=
  echo "$result $1 (status $status)"
}

play
# The last test left a dialog open: what the session's end does to a program.
kill -TERM -- "-$office_pid" 2>/dev/null || true
ended "the program ends when it is told to while a dialog is open" 255

play last
ended "the program ends with its last window, while a macro keeps an object"
