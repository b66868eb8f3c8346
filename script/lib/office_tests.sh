# The tests inside the office program; to be sourced after common.sh, display.sh, office.sh and windows_tests.sh.

# run_office_tests: runs the libraries of tests and the scripts of the office program; each part in a profile of its own,
# the parts one after the other. Expects `results`, the folder for what comes out.
run_office_tests() {
  mkdir -p "$results/libreoffice"
  python3 script/lib/inspect_extension.py build/native/pellora.oxt >"$results/libreoffice/extension.tap" || true
  local library
  for library in build/libreoffice/tests/libreoffice/test_*.so; do
    ( _run_office_library "$library" ) || true
  done
  local script
  for script in tests/libreoffice/*/*.sh; do
    ( _run_office_script "$script" ) || true
  done
}

_run_office_library() {
  local library=$1 name status=0
  name=$(basename "$library" .so)
  _at_exit=()
  trap _run_at_exit EXIT
  # Windows are looked at on a display, and only a window manager gives them the keyboard in an orderly way; everything
  # else needs none.
  if [[ $name == *_forms ]]; then start_display; start_window_manager; else unset DISPLAY; fi
  start_office "$name"
  timeout -k 5 200 "$office_python" script/lib/office_tests.py "$office_pipe" "$library" --gtest_brief=1 \
    "--gtest_output=xml:$results/libreoffice/$name.xml" >"$logs/$name.log" 2>&1 || status=$?
  (( status == 0 )) || broken "$name ran to its end without a failure ($status; see build/logs/office-$name.log)" "libreoffice/$name"
}

_run_office_script() {
  local script=$1 name status=0
  name=$(basename "$(dirname "$script")")-$(basename "$script" .sh)
  timeout -k 10 200 bash "$script" </dev/null >"$results/libreoffice/$name.tap" 2>"$logs/office-$name.log" || status=$?
  (( status == 0 )) ||
    broken "$name ran to its end (it ended with $status; see build/logs/office-$name.log)" "libreoffice/$name"
}
