# The tests inside the office program; to be sourced after common.sh, display.sh, office.sh and windows_tests.sh.

# Where every call of a dialog fails in turn, one of so many does here: all of them take a minute.
office_fail_every=${PELLORA_FAIL_EVERY:-10}

# run_office_tests: runs the libraries of tests and the scripts of the office program, each in a profile of its own:
# those that only compute, and beside them, mostly waiting for windows, those with dialogs. Expects `results`, the folder
# for what comes out.
run_office_tests() {
  mkdir -p "$results/libreoffice"
  python3 script/lib/inspect_extension.py build/native/pellora.oxt >"$results/libreoffice/extension.tap" || true
  local folder=build/libreoffice/tests/libreoffice part parts=()
  ( on_one_core 0; _run_office_parts $folder/test_office_{tape,uno,excel,component}.so tests/libreoffice/component/*.sh ) &
  parts+=($!)
  ( on_one_core 1; _run_office_parts $folder/test_office_forms.so tests/libreoffice/samples/*.sh ) &
  parts+=($!)
  ( on_one_core 1; _run_office_parts tests/libreoffice/badinput/*.sh ) &
  parts+=($!)
  for part in "${parts[@]}"; do wait "$part" || true; done
}

# One after the other.
_run_office_parts() {
  local part
  for part; do
    # A folder without a script leaves its pattern.
    [[ -f $part ]] || continue
    if [[ $part == *.so ]]; then ( _run_office_library "$part" ) || true; else _run_office_script "$part"; fi
  done
}

_run_office_library() {
  local library=$1 name
  name=$(basename "$library" .so)
  _at_exit=()
  trap _run_at_exit EXIT
  # Windows are looked at on a display; everything else needs none.
  if [[ $name == *_forms ]]; then
    start_display
    start_window_manager
  else
    unset DISPLAY
  fi
  # The gallery takes pictures for people.
  _run_in_office "$name" "$library" "-Gallery.*"
  if [[ $name == *_forms ]]; then
    stop_office
    # What people with fine displays see: all captions at twice the size.
    export SAL_FORCEDPI=192
    _run_in_office "$name-192dpi" "$library" "Dialogs.CaptionsFitTheirControls"
  fi
}

# _run_in_office NAME LIBRARY FILTER: starts the program and runs those tests of the library in it.
_run_in_office() {
  local name=$1 library=$2 filter=$3 status=0
  start_office "$name"
  timeout -k 5 200 "$office_python" script/lib/office_tests.py "$office_pipe" "$library" --gtest_brief=1 \
    "--gtest_filter=$filter" "--gtest_output=xml:$results/libreoffice/$name.xml" \
    "PELLORA_FAIL_EVERY=$office_fail_every" >"$logs/$name.log" 2>&1 || status=$?
  (( status == 0 )) ||
    broken "$name ran to its end without a failure ($status; see build/logs/office-$name.log)" "libreoffice/$name"
}

_run_office_script() {
  local script=$1 name status=0
  name=$(basename "$(dirname "$script")")-$(basename "$script" .sh)
  timeout -k 10 400 bash "$script" </dev/null >"$results/libreoffice/$name.tap" 2>"$logs/office-$name.log" || status=$?
  (( status == 0 )) ||
    broken "$name ran to its end (it ended with $status; see build/logs/office-$name.log)" "libreoffice/$name"
}
