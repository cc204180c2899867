# shellcheck shell=bash
# Sourced by wine-run.sh: a Japanese input method on the virtual display, and somebody who types on that display's keyboard.
#
#   run_with_input_method style run program...   runs the program with it by `run`; answers with its exit code, and with
#                                                $input_method_died when it has failed and the input method's server has gone
#
# The style says where a composition is shown: onthespot, in the box itself; overthespot, over it, so that the box gets the committed
# text only. What Windows' own SendInput types never passes the input method, so the program writes commands of xdotool to the file
# DLGLIB_INPUT_KEYS, which are carried out as they come.
#
# The server can die. A program looks for its process, DLGLIB_INPUT_SERVER, before each test. A display and a prefix that have known a
# former server take the next one down with them, so each run needs a display of its own, and the prefix begins anew. A server that lives
# and answers no more is no excuse for a program that fails. But the X library and the server can come to wait for each other for ever (the
# one in XGetICValues, the other in select), some four times in ten runs on an idle machine, whatever the program is: a program that is
# ended for saying nothing is run again, and has failed when it says nothing each time.

input_method_died=76
input_method_silent=137              # of a program that was ended
input_method_patience=40             # seconds without a word of the program
input_method_patience_when_dead=15
_input_folder=
_input_pids=()

_input_start() {
  _input_folder=$(mktemp --directory "${_wine_build:?}/input-method.XXXXXX")
  # What it learns from is kept in the home folder.
  exec_in_wine env HOME="$_input_folder" XMODIFIERS=@im=uim uim-xim --engine=anthy-utf8 8>&- </dev/null >/dev/null 2>&1 &
  _input_pids=($!)
  export XMODIFIERS=@im=uim DLGLIB_INPUT_SERVER=$! DLGLIB_INPUT_KEYS=$_input_folder/keys
  : >"$DLGLIB_INPUT_KEYS"
  local tries=0
  until xprop -root XIM_SERVERS 2>/dev/null | grep --quiet uim; do
    tries=$((tries + 1))
    if [ "$tries" = 100 ] || ! _input_lives; then
      echo "The input method does not start: see what uim-xim --engine=anthy-utf8 says" >&2
      return 1
    fi
    sleep 0.1
  done
  tail --follow --lines=+1 --sleep-interval=0.01 "$DLGLIB_INPUT_KEYS" 8>&- 2>/dev/null > >(xdotool - 8>&- >/dev/null 2>&1) &
  _input_pids+=($!)
}

_input_lives() { kill -0 "$DLGLIB_INPUT_SERVER" 2>/dev/null; }

# A program can wait for its server for ever, whether that has died or has lost count of what it was asked. A test that waits by
# itself says so after 30 seconds; so a program without a word for longer is ended, and its server is left alone.
input_method_watch() {
  local program=$1 output=$2 told=-1 silence=0 now
  while kill -0 "$program" 2>/dev/null; do
    sleep 1
    now=$(stat --format=%s "$output" 2>/dev/null)
    silence=$((silence + 1))
    [ "$now" = "$told" ] || silence=0
    told=$now
    if [ "$silence" -ge "$(_input_patience)" ]; then
      ! _input_lives || echo "The input method's server lives, and the program has said nothing for $silence seconds" >&2
      kill -KILL "$program" 2>/dev/null
      return
    fi
  done
}

_input_patience() { if _input_lives; then echo "$input_method_patience"; else echo "$input_method_patience_when_dead"; fi; }

# The exit code of a run, from that of its program.
_input_verdict() { if [ "$1" = 0 ] || _input_lives; then echo "$1"; else echo "$input_method_died"; fi; }

_input_stop() {
  kill -KILL "${_input_pids[@]}" 2>/dev/null
  wait "${_input_pids[@]}" 2>/dev/null
  rm -rf "$_input_folder"
}

# For all programs of the prefix, which has none but these while they run.
_input_set_style() {
  in_wine wine reg "$1" 'HKCU\Software\Wine\X11 Driver' /v InputStyle "${@:2}" /f </dev/null >/dev/null 2>&1
}

# With Wine 10 the first windows of a program get what is composed, and none of the later ones: nothing could be tested there.
_input_reaches_windows() {
  local version
  version=$(in_wine wine --version 2>/dev/null)
  version=${version#wine-}
  [ "${version%%.*}" -lt 10 ]
}

run_with_input_method() {
  local style=$1 code
  shift
  if ! _input_reaches_windows; then
    echo "Skipped: with this Wine an input method does not reach each window"
    return 77
  fi
  wine_server_stop
  _input_set_style add /d "$style"
  _input_start && "$@"
  code=$(_input_verdict $?)
  _input_stop
  wine_server_stop
  _input_set_style delete
  return "$code"
}
