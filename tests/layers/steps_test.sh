#!/usr/bin/env bash
# How the scripts say what they are doing and how far it is, and that each of them does.
#
#   steps_test.sh <root of the tree>
set -u
cd "$1" || exit 2
unset DLGLIB_STEP
failures=0
expect() {
  [ "$2" = "$3" ] && return
  printf '%s: got\n%s\ninstead of\n%s\n' "$1" "$2" "$3"
  failures=$((failures + 1))
}

inner='. cmake/steps.sh; steps=2; say compiling; say installing; say_next nothing'
got=$(bash -c '. cmake/steps.sh; steps=3; say first; say second; bash -c "$0"; say third; say_next "that is all"' "$inner")
expect "the steps of a script that runs another one" "$got" "== Step 1 of 3: first
== Step 2 of 3: second
== Step 2.1 of 2.2: compiling
== Step 2.2 of 2.2: installing
== Step 3 of 3: third
Next: that is all"

# A clock that goes on by 65 seconds with each step.
timed='. cmake/steps.sh; unset SECONDS; SECONDS=$_step_began; for each in first second; do SECONDS=$((SECONDS + 65)); say $each; done'
expect "the times" "$(bash -c "$timed; say_times")" "== Step 1 of 1: first
== Step 2 of 1: second
Minutes and seconds:
    1:05  what is needed
    1:05  first
    0:00  second
    2:10  in all"
expect "the times of a script that another one runs" "$(DLGLIB_STEP=1 bash -c "$timed; say_times")" "== Step 1.1 of 1.1: first
== Step 1.2 of 1.1: second"

# What ninja says of 40 objects, with a warning in between.
ninja_says() {
  local k
  echo "@0 of 2@ Re-checking globbed directories..."
  for ((k = 1; k <= 40; ++k)); do
    echo "@$k of 40@ Building CXX object $k"
    [ "$k" != 13 ] || echo "a.cpp:1: warning: of 40"
  done
}
got=$(. cmake/steps.sh; ninja_says | show_progress)
expect "the progress of a build" "$got" "   4 of 40 built
   8 of 40 built
   12 of 40 built
a.cpp:1: warning: of 40
   16 of 40 built
   20 of 40 built
   24 of 40 built
   28 of 40 built
   32 of 40 built
   36 of 40 built
   40 of 40 built"
expect "a build of nothing" "$(. cmake/steps.sh; echo "ninja: no work to do." | show_progress)" ""

for script in build.sh demo.sh test.sh bench.sh cmake/bare-system.sh cmake/tidy.sh; do
  for said in say say_next; do
    grep -q -E "(^|[^a-z_])$said \"" "$script" || expect "$script" "no $said" "one"
  done
done
[ "$failures" = 0 ]
