#!/usr/bin/env bash
# Runs one Windows program in the build tree's Wine and answers with its exit code (CMAKE_CROSSCOMPILING_EMULATOR).
#
# Uses the display that test.sh has started (DLGLIB_DISPLAY), else one of its own for this run.
set -u
. "$(dirname "${BASH_SOURCE[0]}")/wine-env.sh"

if [ -n "${DLGLIB_DISPLAY:-}" ]; then
  export DISPLAY=$DLGLIB_DISPLAY
  in_wine wine "$@" </dev/null
  exit
fi

wine_prepare || exit 1
# Two programs of one prefix on two displays can wait for each other for ever.
exec 8>"$_wine_build/wine-run.lock"
flock 8
wine_display_start || exit 1
trap wine_display_stop EXIT
in_wine wine "$@" </dev/null 8>&-
code=$?
# The desktop's process leaves a moment later; it would complain about the display's end.
in_wine timeout 10 wineserver -w
exit "$code"
