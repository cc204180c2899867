#!/usr/bin/env bash
# What the scripts in the root say where something is missing that they need: one line, and status 1; nothing is built before. And what
# becomes of a Wine prefix that cannot be made. What is missing is played: other programs stand in front of the machine's.
#
#   bad_input_test.sh <root of the tree>
set -u
cd "$1" || exit 2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export DLGLIB_BUILD=$work/build
unset DISPLAY "${!DLGLIB_DISPLAY@}" DLGLIB_STEP
bash=$(command -v bash)
timeout=$(command -v timeout)
failures=0
fail() {
  echo "$1"
  failures=$((failures + 1))
}

# play <name> <command...>: from now on the program of that name does that.
play() {
  mkdir -p "$work/bin"
  printf '#!/bin/sh\n%s\n' "${*:2}" >"$work/bin/$1"
  chmod +x "$work/bin/$1"
}
nothing_played() { rm -rf "$work/bin"; }

# refused <case> <text...>: the command in `command` says one line, which holds each text, and answers 1.
command=()
refused() {
  local text code
  PATH=${path:-$work/bin:$PATH} "$timeout" 60 "$bash" "${command[@]}" >"$work/said" 2>&1 </dev/null
  code=$?
  sed -i '/^Installing: /d' "$work/said"  # what is done is no complaint
  [ "$code" = 1 ] || fail "$1: status $code"
  [ "$(wc -l <"$work/said")" = 1 ] || { fail "$1: not one line:"; cat "$work/said"; }
  for text in "${@:2}"; do grep --quiet --fixed-strings -e "$text" "$work/said" || fail "$1: nothing of $text"; done
}
each_script() {
  local script
  for script in "./test.sh" "./test.sh --coverage" "./test.sh --mutants" "./demo.sh --virtual" ./build.sh ./bench.sh; do
    read -ra command <<<"$script"
    "$@"
  done
}

no_right() { refused "no root and no sudo, ${command[*]}" "apt-get install" g++-mingw-w64-x86-64-posix; }
play dpkg-query exit 0
play id echo 1000
play sudo exit 1
each_script no_right

no_network() { refused "no network, ${command[*]}" 'is the network there' "apt-get install"; }
play id echo 0
play apt-get exit 100
play env 'case "$*" in *apt-get*) exit 100;; esac; exec /usr/bin/env "$@"'
each_script no_network

# Without Debian's packages the tools are looked for.
no_tools() { refused "no tools, ${command[*]}" cmake ninja x86_64-w64-mingw32-g++; }
nothing_played
mkdir "$work/bare"
for tool in dirname tr; do ln -s "$(command -v "$tool")" "$work/bare/"; done
path=$work/bare
each_script no_tools
command=(./test.sh)
refused "no tools for tests" wine Xvfb python3 xdotool
command=(./demo.sh --virtual)
refused "no tools for the demo" wine Xvfb xprop
! grep --quiet xdotool "$work/said" || fail "the demo asks for what only tests need"
path=

play dpkg-query 'printf installed'
play Xvfb exit 1
play cmake 'echo building; exit 1'
for script in ./test.sh "./demo.sh --virtual" ./bench.sh; do
  read -ra command <<<"$script"
  refused "no display, $script" "The virtual display does not start"
done

command=(./demo.sh grid)
refused "a window for a person, and no display" "needs a display"
command=(cmake/bare-system.sh trixie)
play id echo 1000
refused "a bare system without root" "run this as root"
play id echo 0
ln -s "$work/bin/id" "$work/bare/"
path=$work/bare
refused "a bare system without its tool" "apt-get install debootstrap"
path=

# A prefix that cannot be made is not taken for one; one that can be made is made once.
play Xvfb 'echo 7 >&3; exec sleep 60 3>&-'
play localedef 'for last; do :; done; mkdir -p "$last"; : >"$last/LC_CTYPE"'
play wine exit 0
play wineserver exit 0
command=(-c '. cmake/wine-env.sh; wine_prepare >/dev/null')
for boot in 'exit 1' 'exit 0'; do
  play wineboot "mkdir -p \"\$WINEPREFIX\"; $boot"
  refused "a prefix without a registry, $boot" "The Wine prefix could not be created"
  [ ! -e "$DLGLIB_BUILD/wine/made-by" ] || fail "half a prefix counts as one, $boot"
done
play wineboot 'mkdir -p "$WINEPREFIX/dosdevices" "$WINEPREFIX/drive_c/windows/Fonts"; echo "$1" >"$WINEPREFIX/system.reg"'
PATH=$work/bin:$PATH "$bash" "${command[@]}" || fail "a whole prefix is refused"
[ -e "$DLGLIB_BUILD/wine/made-by" ] || fail "a whole prefix does not count"

[ "$failures" = 0 ]
