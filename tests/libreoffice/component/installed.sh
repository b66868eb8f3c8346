#!/usr/bin/env bash
# The extension as its users have it: installed in a profile, used from Basic. Prints a line "ok NAME" or "not ok NAME" a
# test.
. "$(dirname "$0")/../../../script/lib/common.sh"
. "$root/script/lib/office.sh"

folder=$root/tests/libreoffice/component
desk=$root/build/office/component-desk
mkdir -p "$desk"
# The library's own settings and logs are not the user's.
export XDG_CONFIG_HOME=$desk
cd "$desk"

prepare_office component "$desk" "$root/build/native/pellora.oxt" || fail "the extension could not be installed"
# Windows in memory only: what a dialog looks like is not asked here. Told to run without any, the program would answer
# every dialog by itself; it does not look at the display it is told of.
DISPLAY=none office_look=svp launch_office
timeout -k 5 60 "$office_python" "$folder/installed.py" "$office_pipe" "$office_pid" || echo "not ok ran to its end"
# The last test asked the program to end with an object alive.
status=0
if until_true 20 _office_ended; then
  wait "$office_pid" || status=$?
  office_pid=
else
  status="is still there"
fi
if [[ $status == 0 ]]; then
  echo "ok the program ends in peace with an object alive"
else
  echo "not ok the program ends in peace with an object alive ($status)"
fi
