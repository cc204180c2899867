#!/usr/bin/env bash
# Runs one Windows program in the build tree's Wine and answers with its exit code (CMAKE_CROSSCOMPILING_EMULATOR).
#
# DLGLIB_PRELOAD names a library of this machine that is to stand between the program and its calls.
#
# Uses the display that test.sh has started (DLGLIB_DISPLAY), else one of its own for this run.
set -u
. "$(dirname "${BASH_SOURCE[0]}")/wine-env.sh"
. "$(dirname "${BASH_SOURCE[0]}")/input-method.sh"

# What runs in the background of a prefix (services, the desktop) inherits the output of the program that comes first and keeps it
# open. Whoever reads this script's output must not wait for those, so the program writes to a file.
#
# A program of tests that was ended by something else, half-way, may answer 0 all the same: Wine ends what the server kills with that.
# It has left no results then, and has failed.
run() {
  local output results= argument
  for argument in "$@"; do
    case $argument in --gtest_output=xml:*) results=${argument#--gtest_output=xml:} ;; esac
  done
  [ -z "$results" ] || rm -f "$results"
  output=$(mktemp "$_wine_build/output.XXXXXX")
  exec_in_wine ${DLGLIB_PRELOAD:+env LD_PRELOAD="$DLGLIB_PRELOAD"} wine "$@" </dev/null >"$output" 2>&1 &
  local program=$!
  if [ -n "${DLGLIB_INPUT_SERVER:-}" ]; then input_method_watch "$program" "$output" & fi
  tail --follow --lines=+1 --sleep-interval=0.05 --pid="$program" "$output"
  wait "$program"
  local code=$?
  rm -f "$output"
  if [ "$code" = 0 ] && [ -n "$results" ] && [ ! -f "$results" ]; then
    echo "It has ended without its results"
    return 1
  fi
  return "$code"
}

# With a Japanese input method when a style of it is asked for.
run_as_asked() {
  if [ -n "${DLGLIB_INPUT_STYLE:-}" ]; then run_with_input_method "$DLGLIB_INPUT_STYLE" run "$@"; else run "$@"; fi
}

# Of a system with another code page the prefixes are others; 65001 is the program's own, by its manifest.
use() {
  case ${DLGLIB_CODE_PAGE:-65001} in
    65001) ;;
    *) wine_use_code_page "$DLGLIB_CODE_PAGE" || exit 1 ;;
  esac
  [ -z "${DLGLIB_DPI:-}" ] || wine_use_dpi "$DLGLIB_DPI"
  wine_use "$1"
}

# The display is stopped at the end, when the desktop's process of the prefix has left: it would complain about the display's end.
run_on_fresh_display() {
  local code
  wine_displays_start 1 || return 1
  run_as_asked "$@" 8>&-
  code=$?
  in_wine timeout 10 wineserver -w
  wine_displays_stop
  return "$code"
}

# An input method that has died leaves a display on which the next one dies as well, and so does one that is silent.
run_on_own_display() {
  local code died=0 silent=0
  trap wine_displays_stop EXIT
  while [ "$died" -lt 2 ] && [ "$silent" -lt 4 ]; do
    run_on_fresh_display "$@"
    code=$?
    if [ "$code" = "$input_method_died" ]; then
      died=$((died + 1))
      echo "The input method's server has died"
    elif [ "$code" = "$input_method_silent" ] && [ -n "${DLGLIB_INPUT_STYLE:-}" ]; then
      silent=$((silent + 1))
    else
      return "$code"
    fi
  done
  return 1
}

# CTest has displays to give away, each with a prefix of its own (cmake/displays.json): "id:<k>,slots:1".
given=${CTEST_RESOURCE_GROUP_0_DISPLAYS:-id:1,}
given=${given#id:}
if [ -n "${DLGLIB_DISPLAY:-}" ]; then
  use "${given%%,*}"
  # A screen with more dots per inch has more of them, so such a run has a display of its own, and so has one with an input method.
  if [ -n "${DLGLIB_DPI:-}${DLGLIB_INPUT_STYLE:-}" ]; then
    unset "${!DLGLIB_DISPLAY@}"
    run_on_own_display "$@"
    exit
  fi
  export DISPLAY=$DLGLIB_DISPLAY
  run_as_asked "$@"
  exit
fi

wine_prepare || exit 1
use 1
# Two programs of one prefix on two displays can wait for each other for ever.
exec 8>"$_wine_build/wine-run.lock"
flock 8
run_on_own_display "$@"
exit
