# shellcheck shell=bash
# Sourced by the scripts that take their time: says what is being done, and how far it is.
#
#   steps=3                 how many there will be
#   say text                begins the next one: "== Step 1 of 3: text"
#   say_times               how long each step has taken, and all of them; nothing in a script that another one runs
#   say_next text           what to do next, at the end; nothing in a script that another one runs
#   show_progress           passes ninja's output on, with one line for each tenth of what is to be built; $progress_status is the
#                           form in which ninja has to number its lines (NINJA_STATUS)
#
# A script that another one runs numbers its steps below the one that it is run in: "== Step 2.1 of 2.3".

steps=1
step=0
_outer_step=${DLGLIB_STEP:+$DLGLIB_STEP.}
progress_status='@%f of %t@'
_step_times=()
_step_text="what is needed"  # before the first step: packages are installed, a display is tried
_step_began=$SECONDS

_end_step() {
  _step_times+=("$((SECONDS - _step_began)) $_step_text")
  _step_began=$SECONDS
}

say() {
  _end_step
  _step_text=$1
  step=$((step + 1))
  export DLGLIB_STEP=$_outer_step$step
  echo "== Step $DLGLIB_STEP of $_outer_step$steps: $1"
}

say_times() {
  [ -z "$_outer_step" ] || return 0
  _end_step
  echo "Minutes and seconds:"
  printf '%s\n' "${_step_times[@]}" |
    awk 'function line(t, text) { printf "%5d:%02d  %s\n", t / 60, t % 60, text }
         { t = $1; all += t; sub(/^[0-9]+ /, ""); line(t, $0) }
         END { line(all, "in all") }'
}

say_next() { [ -n "$_outer_step" ] || echo "Next: $1"; }

show_progress() {
  local line tenth shown=0
  while IFS= read -r line; do
    if [[ $line =~ ^@([0-9]+)\ of\ ([0-9]+)@ ]]; then
      tenth=$((10 * BASH_REMATCH[1] / (BASH_REMATCH[2] > 0 ? BASH_REMATCH[2] : 1)))
      [ "$tenth" -le "$shown" ] || echo "   ${BASH_REMATCH[1]} of ${BASH_REMATCH[2]} built"
      shown=$((tenth > shown ? tenth : shown))
    elif [ "$line" != "ninja: no work to do." ]; then
      printf '%s\n' "$line"
    fi
  done
}
