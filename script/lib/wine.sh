# Wine in a prefix of its own; to be sourced after common.sh.

# start_wine [NAME [win64|win32]]: prepares the environment of the private prefix build/wine-NAME, makes the prefix when
# it is not there yet, and keeps its server running until the script ends.
start_wine() {
  local new=$root/build/wine-new-${2:-win64}
  # Made where both Wines are, it has both kinds of programs.
  [[ ! -x /usr/lib/wine/wine ]] || new+=-of-both
  export WINEPREFIX=$root/build/wine${1:+-$1} WINEDEBUG=-all WINEARCH=${2:-win64}
  # No .NET, no HTML engine, and no debugger: after a crash it would wait for somebody to look.
  export WINEDLLOVERRIDES="mscoree=;mshtml=;winedbg.exe="
  command -v wine >/dev/null || fail "Wine is not installed"
  _prefer_loader
  at_exit "stop_wine"
  # The programs of a warm server start in a tenth of a second, and what lasts only for a session lasts from one program
  # to the next. The server needs the folder to be there; without one each program would have a server of its own, which
  # is on its way out while the next one starts. Its output is closed, or whoever reads ours waits for the server's end.
  [[ -f $WINEPREFIX/.prepared ]] || _copy_prefix "$new" || fail "the Wine prefix could not be made"
  wineserver -p300 </dev/null >/dev/null 2>&1 || true
  run_wine 60 cmd /c exit
}

# start_new_wine NAME [win64|win32]: the same with a prefix in which nothing was ever run.
start_new_wine() {
  rm -rf "$root/build/wine-$1"
  start_wine "$@"
}

stop_wine() {
  [[ -n ${WINEPREFIX:-} ]] || return 0
  timeout -k 1 10 wineserver -k </dev/null >/dev/null 2>&1 || true
  PATH=${PATH#"$root/build/wine64-bin:"}
}

# run_wine SECONDS PROGRAM...: runs a Windows program with a time limit; what it prints comes when it has ended. Ends
# with the program's code, or 124.
run_wine() {
  local said status=0
  said=$(mktemp)
  _run_wine_once "$@" >"$said" || status=$?
  if _never_started "$said"; then
    status=0
    _run_wine_once "$@" >"$said" || status=$?
  fi
  cat "$said"
  rm -f "$said"
  return "$status"
}

# A program of the system goes by its bare name. By its path Wine starts it at once; for a name it starts a program that
# looks for it and starts it in turn.
_run_wine_once() {
  local seconds=$1 program=$2
  shift 2
  [[ ! -f $WINEPREFIX/drive_c/windows/system32/$program.exe ]] || program="C:\\windows\\system32\\$program.exe"
  timeout -k 5 "$seconds" wine "$program" "$@" </dev/null
}

# _never_started FILE: true when the output in FILE says that Wine did not get the program to start. It happens once in
# a thousand starts on a busy machine and says nothing of the program, of which nothing ran: one more try is due.
_never_started() { grep -q 'ShellExecuteEx failed' "$1"; }

# set_user_value KEY NAME TYPE DATA: writes below HKEY_CURRENT_USER.
set_user_value() {
  run_wine 30 reg add "HKCU\\$1" /v "$2" /t "$3" /d "$4" /f >/dev/null
}

# set_dpi DOTS_PER_INCH: what programs started from now on find as the display's scale.
set_dpi() {
  set_user_value 'Control Panel\Desktop' LogPixels REG_DWORD "$1"
}

# register DLL...: registers the servers, by Unix path.
register() {
  local library
  for library; do
    run_wine 60 regsvr32 /s "$(windows_path "$library")" || fail "${library#"$root"/} could not be registered"
  done
}

# windows_path PATH: the path as Windows programs name it.
windows_path() {
  local path
  path=$(realpath -m "$1")
  printf 'Z:%s' "${path//\//\\}"
}

# Where both Wines are installed, "wine" is the 32-bit one and would start 32-bit programs of the system in a 64-bit
# prefix too: there the 64-bit one goes by that name.
_prefer_loader() {
  local loader=/usr/lib/wine/wine64
  [[ $WINEARCH == win64 && -x /usr/lib/wine/wine && -x $loader ]] || return 0
  mkdir -p "$root/build/wine64-bin"
  printf '#!/bin/sh\nexport WINELOADER=%s\nexec %s "$@"\n' "$loader" "$loader" >"$root/build/wine64-bin/wine"
  chmod +x "$root/build/wine64-bin/wine"
  [[ :$PATH: == *":$root/build/wine64-bin:"* ]] || export PATH=$root/build/wine64-bin:$PATH
}

# _copy_prefix NEW: a prefix takes ten seconds to make, so that one is kept in which nothing was ever run. Copies share
# its files, but for the registry: Wine never writes into a program.
_copy_prefix() {
  local new=$1 file
  (
    flock 9
    [[ -f $new/.prepared ]] || WINEPREFIX=$new _make_prefix
  ) 9>"$new.lock" || return 1
  rm -rf "$WINEPREFIX"
  cp -al "$new" "$WINEPREFIX"
  for file in "$WINEPREFIX"/*.reg; do cp "$file" "$file.own" && mv "$file.own" "$file"; done
}

_make_prefix() {
  rm -rf "$WINEPREFIX"
  mkdir -p "$WINEPREFIX"
  # The server must not keep the lock, which a later one would wait for.
  timeout -k 5 120 wineboot -i </dev/null >"$logs/wineboot.log" 2>&1 9>&- || return 1
  _prepare_prefix 9>&-
  timeout -k 1 10 wineserver -k </dev/null >/dev/null 2>&1 9>&- || true
  touch "$WINEPREFIX/.prepared"
}

_prepare_prefix() {
  # Debian's Wine does not find its own symbol font, with which the buttons of a caption are drawn.
  cp /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
  local settings=$WINEPREFIX/settings.reg
  _settings >"$settings"
  run_wine 60 reg import "$(windows_path "$settings")" >/dev/null 2>&1 || fail "the Wine prefix could not be prepared"
}

# _settings: what a prefix is prepared with, in the registry editor's form.
_settings() {
  python3 - <<'PYTHON'
import struct

# The platform's dialog font and size of today, as near as a free font comes, smoothed without colours. Where that font
# has no sign, as for Chinese and Japanese names, the other one has.
FONT = "DejaVu Sans Condensed"
ASIAN = "wqy-microhei.ttc,WenQuanYi Micro Hei"


def text(value):
    return f'"{value}"'


def data(content, kind=""):
    return f"hex{kind}:" + ",".join(f"{byte:02x}" for byte in content)


def font_record(height):
    """A LOGFONTW, as the registry keeps the fonts of windows."""
    name = FONT.encode("utf-16-le")[:62]
    return struct.pack("<5i8B", height, 0, 0, 0, 400, 0, 0, 0, 1, 0, 0, 0, 0x22) + name.ljust(64, b"\0")


PARTS = ["CaptionFont", "IconFont", "MenuFont", "MessageFont", "SmCaptionFont", "StatusFont"]
SETTINGS = {
    # Windows draw their own captions and take the focus at once: the same with and without a window manager.
    r"HKEY_CURRENT_USER\Software\Wine\X11 Driver": {"Managed": text("N")},
    r"HKEY_LOCAL_MACHINE\Software\Microsoft\Windows NT\CurrentVersion\FontSubstitutes": {
        name: text(FONT) for name in ["MS Shell Dlg", "MS Shell Dlg 2", "Segoe UI", "Tahoma"]
    },
    r"HKEY_LOCAL_MACHINE\Software\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink": {
        FONT: data((ASIAN + "\0\0").encode("ascii"), "(7)")
    },
    r"HKEY_CURRENT_USER\Control Panel\Desktop\WindowMetrics": {part: data(font_record(-12)) for part in PARTS},
    r"HKEY_CURRENT_USER\Control Panel\Desktop": {"FontSmoothing": text("2"), "FontSmoothingType": "dword:00000002"},
}
print("REGEDIT4")
for key, values in SETTINGS.items():
    print(f"\n[{key}]")
    for name, value in values.items():
        print(f'"{name}"={value}')
PYTHON
}
