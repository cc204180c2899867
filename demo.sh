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
if [ -z "$virtual" ] && have_display; then
  choose_frames
  [ "$window" != request ] || echo "Choose a model in the window."
  in_wine wine "${demo[@]}" </dev/null
  exit
fi

[ "$window" = request ] || { echo "The window $window needs a display" >&2; exit 1; }
wine_displays_start 1 || exit 1
choose_frames
echo "No display: the program is used by real input on a virtual one."
in_wine wine build/win64/bin/corvane-demo-driver.exe "$(windows_path "$PWD/build/demo")" "${demo[@]}" </dev/null
code=$?
echo "Screenshots: $(cd build/demo && echo *.png | sed 's,^\| , build/demo/,g')"
exit "$code"
