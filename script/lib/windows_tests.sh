# The Windows tests under Wine; to be sourced after common.sh, display.sh and wine.sh.

# can_run_32_bits: true where this machine's Wine runs 32-bit programs.
can_run_32_bits() { [[ -x /usr/lib/wine/wine ]]; }

# broken NAME GROUP: records in GROUP's results that something never came to be tested.
broken() {
  mkdir -p "$results"
  printf 'not ok %s\n' "$1" >>"$results/$2.tap"
}

# run_windows_tests 64|32: runs the test programs and the script clients of that build, side by side, each part on a
# core, on a display and in a prefix of its own, of that bitness. Expects `results`, the folder for what comes out. The test of the
# archive links the libraries anew: it is for `run_package_test`.
run_windows_tests() {
  local bits=$1 part parts=() played=(automation dialogs failures lists)
  mkdir -p "$results/windows-$bits"
  # The longest programs by themselves, one of them in two parts.
  _beside life _run_filtered "$bits" test_windows_server "Life.*" -life
  _beside server _run_filtered "$bits" test_windows_server "-Life.*"
  _beside winforms _run_programs "$bits" -name test_winforms.exe
  _beside programs _run_programs "$bits" -name 'test_*.exe' ! -name test_windows_server.exe ! -name test_winforms.exe
  _beside dialogs _run_clients "$bits" "${played[@]}"
  _beside test _run_clients "$bits" $(_clients_without lib package "${played[@]}")
  for part in "${parts[@]}"; do wait "$part"; done
}

# _beside NAME VERB BITS...: starts one of the parts of run_windows_tests.
_beside() {
  ( on_one_core "${#parts[@]}"; _on_its_own "$1-$3" "win$3"; "${@:2}" ) &
  parts+=($!)
}

# What a part that runs beside others needs for itself; it is given back when the part ends.
_on_its_own() {
  _at_exit=()
  trap _run_at_exit EXIT
  start_display
  start_wine "$@"
}

_run_programs() {
  local bits=$1 program
  shift
  while IFS= read -r program; do
    _run_program "$bits" "$program" "*"
  done < <(find "$root/build/win$bits" "$@" | sort)
}

# _run_filtered BITS NAME FILTER [SUFFIX]: those tests of one program; the suffix tells the parts' results apart.
_run_filtered() {
  _run_program "$1" "$(find "$root/build/win$1" -name "$2.exe")" "$3" "${4:-}"
}

_run_program() {
  local bits=$1 program=$2 filter=$3 name
  name=$(basename "$program" .exe)${4:-}
  quietly "wine$bits-$name" run_wine 300 "$program" --gtest_brief=1 "--gtest_filter=$filter" \
    "--gtest_output=xml:$(windows_path "$results/windows-$bits/$name.xml")" ||
    broken "$name ran to its end without a failure" "windows-$bits/$name"
}

# make_package: makes the archive twice and compares; for when nobody uses the libraries, which are linked anew.
make_package() {
  mkdir -p "$results/windows-64"
  PELLORA_MAKE_ONLY=$results/package.zip _run_script 64 tests/windows/package.sh
  mv "$results/windows-64/package.tap" "$results/windows-64/archive.tap"
}

# run_package_test: installs, uses and removes what make_package made, or PELLORA_ARCHIVE.
run_package_test() {
  # It makes its own prefix, one in which the library never was.
  ( _at_exit=(); trap _run_at_exit EXIT; on_one_core 0; start_display; PELLORA_ARCHIVE=${PELLORA_ARCHIVE:-$results/package.zip} _run_script 64 tests/windows/package.sh )
}

# _clients_without NAME...: the scripts of tests/windows but these.
_clients_without() {
  local name
  for name in tests/windows/*.sh; do
    name=$(basename "$name" .sh)
    [[ " $* " == *" $name "* ]] || printf '%s\n' "$name"
  done
}

_run_clients() {
  local bits=$1 name
  shift
  for name; do _run_script "$bits" "tests/windows/$name.sh"; done
}

_run_script() {
  local bits=$1 script=$2 name status=0
  name=$(basename "$script" .sh)
  PELLORA_BUILD=$root/build/win$bits PELLORA_WINE_RUNS=yes timeout -k 10 300 bash "$script" \
    </dev/null >"$results/windows-$bits/$name.tap" 2>"$logs/windows$bits-$name.log" || status=$?
  (( status == 0 )) ||
    broken "$name ran to its end (it ended with $status; see build/logs/windows$bits-$name.log)" "windows-$bits/$name"
}
