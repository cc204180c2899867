# shellcheck shell=bash
# Sourced by bash scripts: an own Wine, in the build tree, with a Japanese locale and a virtual display.
#
#   in_wine command...   runs a command in the environment of that Wine
#   wine_prepare         creates locale and prefix when they are missing or were made by another version of this file
#   wine_display_try     starts a virtual display and ends it again; says so and answers 1 when it does not start
#   wine_displays_start n  starts n virtual displays and prepares a prefix for each; DISPLAY and DLGLIB_DISPLAY are the first one's,
#                        DLGLIB_DISPLAY_2 and so on the others'
#   wine_displays_stop   ends all that were started
#   wine_use k           from now on, prefix and display k are used; 1 at first
#   wine_server_start    keeps the Wine server running between programs, which makes each start ten times faster
#   wine_server_stop     ends the server and whatever still runs in the prefix
#   wine_use_code_page n from now on, prefixes are used whose system has that code page (1252); wine_copies makes them
#   wine_use_dpi n       from now on, prefixes are used whose screen has n dots per inch, and displays of 2560 x 1600 are started;
#                        wine_copies makes the prefixes
#   wine_copies n        makes what is missing of the prefixes of the displays 1 to n
#
# Nothing outside the build folder is touched, and only what was started here is ended. DLGLIB_BUILD names the build folder
# when it is not build/.

_wine_scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
_wine_build=${DLGLIB_BUILD:-$(dirname "$_wine_scripts")/build}

WINEPREFIX=$_wine_build/wine
_wine_language=ja_JP.UTF-8
_wine_code_page=  # that of the language, unless another one is asked for
_wine_dpi=        # 96, unless others are asked for
_wine_screen=1280x1024x24
_wine_display_pids=()
_wine_locale=$_wine_build/locale

# The environment is given to the programs only: bash itself complains about a locale that it cannot load. The locale must
# exist: with the name alone the code page is right, but no Japanese file can be opened. The C run-time library reads TZ in
# the POSIX form only. XDG_DATA_HOME holds the recycle bin. DLGLIB_SIMULATED_DRIVES tells the tests that the drives below are there.
in_wine() { (exec_in_wine "$@"); }

# In place of the shell: in the background, $! is the program itself and not a shell that waits for it.
exec_in_wine() {
  exec env -u LC_ALL -u LC_CTYPE -u LC_MESSAGES -u LC_TIME -u LC_COLLATE -u LC_NUMERIC -u LC_MONETARY -u LANGUAGE \
    LOCPATH="$_wine_locale" LANG="$_wine_language" TZ=JST-9 WINEPREFIX="$WINEPREFIX" XDG_DATA_HOME="$WINEPREFIX-data" \
    HOME="${HOME:-$_wine_build}" WINEDEBUG="${WINEDEBUG:--all}" WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=" \
    DLGLIB_SIMULATED_DRIVES=1 "$@"
}

_wine_settings() {
  cat <<'REGISTRY'
REGEDIT4

[HKEY_CURRENT_USER\Software\Wine\WineDbg]
"ShowCrashDialog"=dword:00000000
[HKEY_CURRENT_USER\Software\Wine\X11 Driver]
"Decorated"="N"
"Managed"="N"
[HKEY_CURRENT_USER\Software\Wine\Fonts\Replacements]
"ＭＳ ゴシック"="IPAゴシック"
"MS Gothic"="IPAGothic"
"ＭＳ Ｐゴシック"="IPA Pゴシック"
"MS PGothic"="IPAPGothic"
"MS UI Gothic"="IPAPGothic"
"ＭＳ 明朝"="IPA明朝"
"MS Mincho"="IPAMincho"
[HKEY_LOCAL_MACHINE\Software\Wine\Drives]
"i:"="floppy"
"j:"="hd"
"k:"="hd"
"l:"="cdrom"
"m:"="ramdisk"
"n:"="network"
REGISTRY
}

# One drive of each type, for the tests of the real calls: i: removable, j: fixed with a name, k: fixed without one, l: CD-ROM
# without a disc, m: RAM disk, n: network. The types in the settings are taken up when the server starts next.
_wine_drives() {
  local drive
  for drive in i j k l m n; do
    [ "$drive" = l ] || mkdir -p "$WINEPREFIX/drives/$drive"
    ln -sfn "../drives/$drive" "$WINEPREFIX/dosdevices/$drive:"
  done
  printf '図面' >"$WINEPREFIX/drives/j/.windows-label"  # UTF-8
}

# In a new prefix the user's folders are links into the home folder.
_wine_own_folders() {
  local folder
  for folder in "$WINEPREFIX"/drive_c/users/*/*; do
    [ -L "$folder" ] || continue
    rm "$folder"
    mkdir "$folder"
  done
}

# Without a window manager the dialogs' frames are drawn by Wine, with this font for the buttons in the caption.
_wine_caption_font() {
  local font
  for font in /usr/share/wine/fonts/marlett.ttf /usr/share/fonts/truetype/wine/marlett.ttf; do
    [ ! -f "$font" ] || { cp "$font" "$WINEPREFIX/drive_c/windows/Fonts/"; return; }
  done
}

# The server writes the registry when it ends; without it the prefix is half a one.
_wine_boot() {
  in_wine timeout 300 wineboot --init </dev/null >/dev/null 2>&1 || return 1
  in_wine timeout 60 wineserver -w
  [ -s "$WINEPREFIX/system.reg" ] || return 1
  _wine_drives
  _wine_settings | iconv -f UTF-8 -t CP932 >"$_wine_build/wine-settings.reg"
  in_wine timeout 60 wine regedit /S "$_wine_build/wine-settings.reg" </dev/null >/dev/null 2>&1 || return 1
  in_wine timeout 60 wineserver -w
}

# Says what is wrong when it answers 1.
_wine_create() {
  echo "Creating the Wine prefix in $WINEPREFIX"
  wine_server_stop
  rm -rf "$WINEPREFIX" "$_wine_locale" "$WINEPREFIX-data"
  mkdir -p "$_wine_locale" "$WINEPREFIX-data"
  # Answers 1 for mere warnings.
  local language
  for language in ja_JP en_US; do
    localedef -i "$language" -f UTF-8 "$_wine_locale/$language.UTF-8" 2>/dev/null ||
      [ -f "$_wine_locale/$language.UTF-8/LC_CTYPE" ]
  done
  local started=
  [ -n "${DLGLIB_DISPLAY:-}" ] || { _wine_display_start 1 || return 1; started=1; }
  _wine_boot
  local made=$?
  [ -z "$started" ] || wine_displays_stop
  [ "$made" = 0 ] || { echo "The Wine prefix could not be created: see what WINEPREFIX=$WINEPREFIX wineboot --init says" >&2; return 1; }
  _wine_own_folders
  _wine_caption_font
}

wine_prepare() {
  mkdir -p "$_wine_build"
  local wanted
  wanted="$(cksum <"$_wine_scripts/wine-env.sh") $(in_wine wine --version)"
  (
    flock 9
    [ "$(cat "$WINEPREFIX/made-by" 2>/dev/null)" != "$wanted" ] || exit 0
    _wine_create || exit 1
    echo "$wanted" >"$WINEPREFIX/made-by"
  ) 9>"$_wine_build/wine.lock"
}

_wine_prefix() {
  local prefix=$_wine_build/wine
  [ "$1" = 1 ] || prefix=$prefix-display$1
  echo "$prefix${_wine_code_page:+-$_wine_code_page}${_wine_dpi:+-${_wine_dpi}dpi}"
}

# To be called while nothing runs in the first prefix. What the system's folder holds is never written to, so it is shared.
_wine_copy() {
  local first=$_wine_build/wine copy
  copy=$(_wine_prefix "$1")
  cmp --silent "$first/made-by" "$copy/made-by" && return
  rm -rf "$copy" "$copy-data"
  mkdir -p "$copy/drive_c" "$copy-data"
  find "$first" -mindepth 1 -maxdepth 1 ! -name drive_c ! -name made-by -exec cp --archive -t "$copy" {} +
  find "$first/drive_c" -mindepth 1 -maxdepth 1 ! -name windows -exec cp --archive -t "$copy/drive_c" {} +
  cp --archive --link "$first/drive_c/windows" "$copy/drive_c/"
  [ -z "$_wine_dpi" ] || _wine_set_dpi "$copy"
  cp --archive "$first/made-by" "$copy/"
}

# Before a server has read the registry of that prefix.
_wine_set_dpi() {
  sed -i -e '/^"LogPixels"=/d' -e "/^\\[Control Panel\\\\\\\\Desktop\\]/a \"LogPixels\"=dword:$(printf '%08x' "$_wine_dpi")" "$1/user.reg"
}

wine_copies() {
  local k
  for ((k = 1; k <= $1; ++k)); do _wine_copy "$k" || return; done
}

wine_use() {
  WINEPREFIX=$(_wine_prefix "$1")
  local display=DLGLIB_DISPLAY_$1
  [ "$1" = 1 ] || DLGLIB_DISPLAY=${!display:-}
}

# The language that a system with a code page is set to: Wine has the code page of its locale.
_wine_language_of() {
  case $1 in
    1252) echo en_US.UTF-8 ;;
    *) echo "No system with the code page $1 can be made here" >&2; return 1 ;;
  esac
}

wine_use_code_page() {
  _wine_language=$(_wine_language_of "$1") || return
  _wine_code_page=$1
  export DLGLIB_CODE_PAGE=$1
  wine_use 1
}

wine_use_dpi() {
  _wine_dpi=$1
  _wine_screen=2560x1600x24
  wine_use 1
}

# Display k, which DLGLIB_DISPLAY or DLGLIB_DISPLAY_<k> names from then on.
_wine_display_start() {
  local number display
  number=$(mktemp "$_wine_build/display.XXXXXX")
  Xvfb -displayfd 3 -screen 0 "$_wine_screen" -nolisten tcp 3>"$number" 9>&- </dev/null >/dev/null 2>&1 &
  _wine_display_pids+=($!)
  # The number appears when the display takes connections.
  local tries=0
  until [ -s "$number" ] || [ "$tries" = 300 ] || ! kill -0 "${_wine_display_pids[-1]}" 2>/dev/null; do
    sleep 0.1
    tries=$((tries + 1))
  done
  display=:$(tr -d '[:space:]' <"$number")
  rm -f "$number"
  if [ "$display" = : ]; then
    wine_displays_stop
    echo "The virtual display does not start: see what Xvfb -displayfd 1 says" >&2
    return 1
  fi
  if [ "$1" = 1 ]; then
    export DLGLIB_DISPLAY=$display DISPLAY=$display
  else
    export "DLGLIB_DISPLAY_$1=$display"
  fi
}

wine_display_try() {
  mkdir -p "$_wine_build"
  (_wine_display_start 1 && wine_displays_stop)
}

wine_displays_start() {
  local k
  wine_copies "$1" || return 1
  for ((k = 1; k <= $1; ++k)); do _wine_display_start "$k" || return 1; done
}

wine_displays_stop() {
  [ "${#_wine_display_pids[@]}" != 0 ] || return 0
  kill "${_wine_display_pids[@]}" 2>/dev/null
  wait "${_wine_display_pids[@]}" 2>/dev/null
  _wine_display_pids=()
  unset DLGLIB_DISPLAY DISPLAY "${!DLGLIB_DISPLAY_@}"
}

wine_server_start() { in_wine wineserver -p; }

wine_server_stop() {
  [ -d "$WINEPREFIX" ] || return 0
  in_wine wineserver -k 2>/dev/null
  # Waits until the registry is written.
  in_wine timeout 60 wineserver -w
}
