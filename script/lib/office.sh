# The office program in a profile of its own; to be sourced after common.sh.

# The system's own Python: another one has no module for the office program.
office_python=/usr/bin/python3

can_run_office() { command -v soffice >/dev/null && "$office_python" -c 'import uno' 2>/dev/null; }

# start_office NAME [ARGUMENT...]: starts the program with the profile build/office/NAME, made anew; without a display it
# runs without windows. Exports `office_pipe`, by which script/lib/office_tests.py reaches it. Stops it at the end.
start_office() {
  local name=$1
  shift
  office_profile=$root/build/office/$name
  office_pipe=pellora-$name-$BASHPID
  rm -rf "$office_profile"
  mkdir -p "$office_profile"
  launch_office "$@"
}

# launch_office [ARGUMENT...]: starts the program once more in the same profile.
launch_office() {
  local windows=(--headless)
  [[ -z ${DISPLAY:-} ]] || windows=()
  # The plain windows of the X server look and behave alike on every machine.
  SAL_USE_VCLPLUGIN=gen setsid soffice "-env:UserInstallation=file://$office_profile" "--accept=pipe,name=$office_pipe;urp" \
    --norestore --nologo --nofirststartwizard "${windows[@]}" "$@" </dev/null >>"$logs/office-${office_profile##*/}.log" 2>&1 &
  office_pid=$!
  at_exit "stop_office"
}

# The program is a script that starts another: the whole group goes.
stop_office() {
  [[ -n ${office_pid:-} ]] || return 0
  kill -- "-$office_pid" 2>/dev/null || true
  wait "$office_pid" 2>/dev/null || true
  office_pid=
}
