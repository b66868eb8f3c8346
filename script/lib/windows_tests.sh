# The Windows tests under Wine; to be sourced after common.sh, display.sh and wine.sh.

# can_run_32_bits: true where this machine's Wine runs 32-bit programs.
can_run_32_bits() { [[ -x /usr/lib/wine/wine ]]; }

# broken NAME GROUP: records in GROUP's results that something never came to be tested.
broken() {
  mkdir -p "$results"
  printf 'not ok %s\n' "$1" >>"$results/$2.tap"
}

# run_windows_tests 64|32: runs the test programs and the script clients of that build, in a prefix of its own bitness.
# Expects `results`, the folder for what comes out, and a display.
run_windows_tests() {
  local bits=$1 built=$root/build/win$1 out=$results/windows-$1 program script name status
  mkdir -p "$out"
  start_wine "test-$bits" "win$bits"
  while IFS= read -r program; do
    name=$(basename "$program" .exe)
    quietly "wine$bits-$name" run_wine 300 "$program" --gtest_brief=1 \
      "--gtest_output=xml:$(windows_path "$out/$name.xml")" ||
      broken "$name ran to its end without a failure" "windows-$bits/$name"
  done < <(find "$built" -name 'test_*.exe' | sort)
  for script in tests/windows/*.sh; do
    [[ $script != */lib.sh ]] || continue
    name=$(basename "$script" .sh)
    status=0
    PELLORA_BUILD=$built PELLORA_WINE_RUNS=yes timeout -k 10 300 bash "$script" \
      </dev/null >"$out/$name.tap" 2>"$logs/windows$bits-$name.log" || status=$?
    (( status == 0 )) ||
      broken "$name ran to its end (it ended with $status; see build/logs/windows$bits-$name.log)" "windows-$bits/$name"
  done
  stop_wine
}
