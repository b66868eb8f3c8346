#!/usr/bin/env bash
# What script/demo does to files: the script itself, in a tree of its own, with programs that only leave files. Prints a
# line "ok NAME" or "not ok NAME" a test.
source_root=$(cd "$(dirname "$0")/../.." && pwd)
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
mkdir -p "$tree"/{script/lib,samples,programs}
cp "$source_root/script/demo" "$tree/script/"
cp "$source_root"/script/lib/{common,demo_files,demo_libreoffice,demo_embedded}.sh "$tree/script/lib/"
echo sample >"$tree/samples/Pellora.ods"
echo sample >"$tree/samples/quotes.xlsx"
export PATH=$tree/programs:$PATH

stub() { printf '#!/usr/bin/env bash\n%s\n' "$2" >"$tree/$1" && chmod +x "$tree/$1"; }
stub script/bootstrap ''
stub programs/cmake ''
# The player leaves pictures and, in LibreOffice, the workbook; everyone else has nothing to say.
stub programs/python3 'case $1 in
  *demo_office.py) touch "$3/sheet.png" "$3/calls.txt"; echo played | tee "$4.ods" >"$4.xlsx" ;;
  *demo_play.py) touch "$PELLORA_OUT/tape-96.png" ;;
esac'
cat >"$tree/script/lib/display.sh" <<'STUB'
start_display() { :; }
start_window_manager() { :; }
STUB
# The person at the program writes into the workbook when it is saved.
cat >"$tree/script/lib/office.sh" <<'STUB'
office_python=python3 office_pipe=pipe
can_run_office() { :; }
prepare_office() { :; }
launch_office() { [[ -z ${SAVES:-} ]] || echo saved >>"$1"; true & office_pid=$!; }
STUB
cat >"$tree/script/lib/wine.sh" <<'STUB'
start_wine() { :; }
register() { :; }
set_user_value() { :; }
set_dpi() { :; }
windows_path() { printf '%s\n' "$1"; }
run_wine() { [[ $2 != cscript ]] || { echo result >"$6"; echo done; }; }
STUB

demo() { "$tree/script/demo" "$@" >"$tree/said" 2>&1 || { echo "not ok the demo runs to its end: $(tail -n 2 "$tree/said")"; return 1; }; }
on_display() { DISPLAY=:none demo "$@"; }
saved_on_display() { SAVES=yes on_display "$@"; }
office=$tree/out/demo/libreoffice

# holds NAME TEXT FILE...: each file is there with the text.
holds() {
  local name=$1 text=$2 file
  shift 2
  for file; do [[ $(cat "$file" 2>&1) == "$text" ]] || { echo "not ok $name (${file##*/}: $(cat "$file" 2>&1 | head -n 2))"; return; }; done
  echo "ok $name"
}
afresh() {
  rm -rf "$tree/out"
  mkdir -p "$office"
}

for host in libreoffice embedded; do
  folder=$office name=Pellora.ods
  [[ $host == libreoffice ]] || folder=$tree/out/demo name=quotes.xlsx
  for way in "--auto" ""; do
    for own in "$name" "result.${name##*.}"; do
      afresh
      echo mine >"$folder/$own"
      on_display --host $host $way "$folder/$own"
      holds "$host ${way:-by hand}: a named workbook stays where a demo leaves its files, as $own" mine "$folder/$own"
      on_display --host $host $way
      holds "$host ${way:-by hand}: the next demo leaves $own alone, too" mine "$folder/$own"
    done
  done
done

afresh
saved_on_display --host libreoffice
kept=$(cat "$office/Pellora.ods")
on_display --host libreoffice
demo --host libreoffice --auto
holds "a copy that was saved outlives the next demos" "$kept" "$office/Pellora.ods"

afresh
on_display --host libreoffice
on_display --host libreoffice
[[ ! -e $office/Pellora-2.ods ]] && echo "ok a copy that was not saved is replaced" || echo "not ok a copy that was not saved is replaced"

afresh
demo --host libreoffice --auto
demo --host libreoffice --auto
[[ $(ls "$office") == $'Pellora.ods\ncalls.txt\nresult.ods\nresult.xlsx\nsheet.png' ]] &&
  echo "ok a demo replaces what the last one left" ||
  echo "not ok a demo replaces what the last one left ($(ls "$office" | tr '\n' ' '))"
echo changed >"$office/result.ods"
demo --host embedded --auto
holds "a demo on the other host leaves the results" changed "$office/result.ods"
demo --host libreoffice --auto
holds "a result that was changed outlives the next demo" changed "$office/result.ods"
holds "the next result stands beside it" played "$office/result-2.ods"
