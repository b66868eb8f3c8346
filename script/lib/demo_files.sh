# What a demo leaves in its folder, and what the next one may replace; to be sourced after common.sh. A workbook is never
# among it: not the one that was named, wherever it lies, nor a copy or a result that someone has saved since.

# open_folder FOLDER: makes the folder, and removes what the last demo left there as it was left. Sets `out`; whatever else
# is in it at the end was left by this one.
open_folder() {
  out=$1
  _kept=$'\n'
  local sum file
  mkdir -p "$out"
  if [[ -f $out/.made ]]; then
    while read -r sum file; do
      [[ ! $out/$file -ef $workbook ]] || continue
      [[ $(sha256sum 2>/dev/null <"$out/$file") != "$sum "* ]] || rm -f "$out/$file"
    done <"$out/.made"
  fi
  rm -f "$out"/{.made,calls.txt}
  for file in "$out"/*; do [[ ! -f $file ]] || _kept+=${file##*/}$'\n'; done
  at_exit "_note_left"
}

# note_made FILE: it is the demo's as it is now.
note_made() {
  local name=${1##*/}
  printf '%s %s\n' "$(sha256sum <"$1" | cut -d' ' -f1)" "$name" >>"$out/.made"
  _kept+=$name$'\n'
}

_note_left() {
  local file
  for file in "$out"/*; do
    [[ ! -f $file || $_kept == *$'\n'${file##*/}$'\n'* ]] || note_made "$file"
  done
}

# free_name PATH ENDING...: the path without an ending for files that are not there yet; with a number when it must be.
free_name() {
  local path=$1 number=1 free=$1
  shift
  while _any_there "$free" "$@"; do free=$path-$(( ++number )); done
  printf '%s\n' "$free"
}

_any_there() {
  local path=$1 ending
  shift
  for ending; do [[ ! -e $path.$ending ]] || return 0; done
  return 1
}
