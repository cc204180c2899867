#!/usr/bin/env bash
# What becomes of a program under an input method that says nothing more: it is ended, its server is left alone, and the run counts as one
# whose server has died only when that has.
#
#   input_method_watch_test.sh <root of the tree>
set -u
. "$1/cmake/input-method.sh"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0
fail() {
  echo "$1"
  failures=$((failures + 1))
}
input_method_patience=3
input_method_patience_when_dead=1

# watch <program...>: runs a program that is watched beside the server; its verdict is left in `verdict`, the seconds in `seconds`.
watch() {
  : >"$work/output"
  local begun=$SECONDS code
  "$@" >"$work/output" &
  local program=$!
  input_method_watch "$program" "$work/output" 2>"$work/said" &
  local watcher=$!
  wait "$program" 2>/dev/null
  code=$?
  wait "$watcher"
  seconds=$((SECONDS - begun))
  verdict=$(_input_verdict "$code")
}

sleep 300 &
export DLGLIB_INPUT_SERVER=$!

watch sleep 300
[ "$verdict" = 137 ] || fail "a silent program beside a living server gives $verdict"
[ "$seconds" -lt 60 ] || fail "it is waited for for $seconds seconds"
kill -0 "$DLGLIB_INPUT_SERVER" 2>/dev/null || fail "a living server is ended"
grep --quiet "server lives" "$work/said" || fail "nobody is told that the server lives"

watch sh -c 'exit 3'
[ "$verdict" = 3 ] || fail "a program that fails beside a living server gives $verdict"

talk() {
  for _ in 1 2 3 4 5; do
    echo a word
    sleep 1
  done
}
watch talk
[ "$verdict" = 0 ] || fail "a program that goes on talking gives $verdict"

kill -KILL "$DLGLIB_INPUT_SERVER"
wait "$DLGLIB_INPUT_SERVER" 2>/dev/null
watch sleep 300
[ "$verdict" = "$input_method_died" ] || fail "a program whose server has died gives $verdict"
watch true
[ "$verdict" = 0 ] || fail "a program that needs its server no more gives $verdict"

# What is started in the background is known by its own number, so that it is what is ended.
(
  . "$1/cmake/wine-env.sh"
  WINEPREFIX=$work exec_in_wine sleep 300 &
  for _ in $(seq 100); do
    [ "$(cat "/proc/$!/comm")" = sleep ] && break
    sleep 0.1
  done
  name=$(cat "/proc/$!/comm")
  kill "$!"
  [ "$name" = sleep ]
) || fail "a program in the background is known by the number of a shell that waits for it"

[ "$failures" = 0 ]
