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

# prepare_office NAME TRUSTED_FOLDER EXTENSION...: makes the profile build/office/NAME anew, with the extensions in it and
# with macros allowed for workbooks in the folder. To be followed by launch_office.
prepare_office() {
  local status=0
  (
    unset DISPLAY
    start_office "$1"
    timeout -k 5 60 "$office_python" "$root/script/lib/office_profile.py" "$office_pipe" "${@:2}" || status=$?
    # It was asked to end; the profile is complete when it has.
    until_true 20 _office_ended || status=1
    stop_office
    exit "$status"
  ) || status=$?
  office_profile=$root/build/office/$1
  office_pipe=pellora-$1-$BASHPID
  return "$status"
}

_office_ended() { ! kill -0 "$office_pid"; }

# launch_office [ARGUMENT...]: starts the program once more in the same profile.
launch_office() {
  # The plain windows of the X server look and behave alike on every machine.
  local windows=() plugin=gen
  [[ -n ${DISPLAY:-} ]] || windows=(--headless) plugin=svp
  SAL_USE_VCLPLUGIN=${office_look:-$plugin} setsid soffice "-env:UserInstallation=file://$office_profile" "--accept=pipe,name=$office_pipe;urp" \
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
