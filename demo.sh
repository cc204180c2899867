#!/usr/bin/env bash
# Builds the library and opens the file browser on the sample files; prints the three forms of the chosen name.
#
# With a display a person uses it. Without one (or with --virtual) a virtual display is started and the same program is driven by
# real mouse and keyboard input; screenshots are left in build/demo/.
#
#   ./demo.sh checks | toolbar | grid    another window of the demo instead of the browser; needs a display
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")" || exit 1
. cmake/packages.sh
. cmake/steps.sh
. cmake/wine-env.sh

windows_path() { echo "Z:$1"; }

# Each run starts from the same files, whatever was renamed or deleted before.
fresh_home() {
  rm -rf build/demo
  mkdir -p build/demo/home
  cp -r demo/corvane.session demo/data build/demo/home/
  local date file
  while IFS=$'\t' read -r date file; do
    TZ=JST-9 touch --no-create --date="$date" "build/demo/home/data/$file"
  done <demo/dates.tsv
}

have_display() { [ -n "${DISPLAY:-}" ] && xprop -root >/dev/null 2>&1; }

# With a window manager it draws the frames; without one Wine does.
choose_frames() {
  local value=N
  xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && value=Y
  local key='HKCU\Software\Wine\AppDefaults\corvane-demo.exe\X11 Driver'
  for name in Managed Decorated; do
    in_wine wine reg add "$key" /v "$name" /d "$value" /f </dev/null >/dev/null 2>&1
  done
}

finish() {
  wine_server_stop
  wine_displays_stop
}

virtual=
window=request
case "${1:-}" in
  "") ;;
  --virtual) virtual=1 ;;
  checks | toolbar | grid) window=$1 ;;
  *) sed -n '2,7s/^# \{0,1\}//p' "$0"; exit 2 ;;
esac
if [ -n "${DISPLAY:-}" ] && [ -z "$virtual" ]; then need_packages x11-utils || exit 1; fi
need_packages "${PRODUCT_PACKAGES[@]}" "${RUN_PACKAGES[@]}" || exit 1
person=
if [ -z "$virtual" ] && have_display; then
  person=1
else
  [ "$window" = request ] || { echo "The window $window needs a display" >&2; exit 1; }
  wine_display_try || exit 1
fi

steps=2
say "building what is shown; the Wine prefix is made beside it"
# The prefix is made while the compiler works.
wine_prepare &
preparing=$!
./build.sh --demo || { wait "$preparing"; exit 1; }
wait "$preparing" || exit 1
fresh_home
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

demo=("$(windows_path "$PWD/build/sdk/bin/corvane-demo.exe")" --home "$(windows_path "$PWD/build/demo/home")" "$window")
if [ -n "$person" ]; then
  say "the window"
  choose_frames
  [ "$window" != request ] || echo "Choose a model in the window."
  in_wine wine "${demo[@]}" </dev/null
  code=$?
  say_times
  say_next "./demo.sh checks, toolbar and grid show other windows; README.md says how a program uses the library"
  exit "$code"
fi

say "the window on a virtual display, used by real input"
wine_displays_start 1 || exit 1
choose_frames
in_wine wine build/win64/bin/corvane-demo-driver.exe "$(windows_path "$PWD/build/demo")" "${demo[@]}" </dev/null
code=$?
echo "Screenshots: $(cd build/demo && echo *.png | sed 's,^\| , build/demo/,g')"
say_times
say_next "look at the screenshots; README.md says how a program uses the library"
exit "$code"
