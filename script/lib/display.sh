# A virtual display of one's own; to be sourced after common.sh.

# start_display [WIDTHxHEIGHT]: starts Xvfb on a free display number, exports DISPLAY, stops it at the end.
start_display() {
  local size=${1:-1600x1200} number_file=$logs/display.$BASHPID
  # Xvfb itself finds the free number and says which it took.
  Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp -noreset 3>"$number_file" >/dev/null 2>"$logs/xvfb.$BASHPID.log" &
  display_pid=$!
  at_exit "stop_display"
  until_true 10 test -s "$number_file" || fail "the virtual display did not start: $(<"$logs/xvfb.$BASHPID.log")"
  export DISPLAY=:$(<"$number_file")
  rm -f "$number_file"
  # Wine looks for a session's files here when it finds them; the virtual display has none.
  unset XAUTHORITY WAYLAND_DISPLAY
}

stop_display() {
  [[ -n ${display_pid:-} ]] || return 0
  kill "$display_pid" 2>/dev/null || true
  wait "$display_pid" 2>/dev/null || true
  display_pid=
}

# start_window_manager: frames and focus for the windows of programs that need them; stops at the end.
start_window_manager() {
  openbox --sm-disable >"$logs/openbox.$BASHPID.log" 2>&1 &
  manager_pid=$!
  at_exit "kill $manager_pid 2>/dev/null"
  until_true 10 _display_is_managed || fail "the window manager did not start"
}

_display_is_managed() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; }
