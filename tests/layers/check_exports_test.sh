#!/usr/bin/env bash
# Sees exports.sh notice a name that is new, one that is gone, and one of the standard library.
#
#   check_exports_test.sh <root of the tree>
set -u
exports=$1/cmake/exports.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 2
failures=0
fail() {
  echo "$1"
  failures=$((failures + 1))
}

# dll <exported name...>: makes names.dll
dll() {
  printf '__declspec(dllexport) int %s(void) { return 0; }\n' "$@" >names.c
  x86_64-w64-mingw32-gcc-posix -shared -nostdlib -Wl,-e,0 -o names.dll names.c
}

dll One _ZN1A3TwoEv
"$exports" renew names.dll list.txt || fail "no list"
[ "$(cat list.txt)" = "$(printf 'One\n_ZN1A3TwoEv')" ] || fail "the list is: $(cat list.txt)"
"$exports" check names.dll list.txt || fail "refuses what is listed"

dll One _ZN1A5ThreeEv
said=$("$exports" check names.dll list.txt) && fail "does not refuse"
[[ $said == *"+ _ZN1A5ThreeEv"*"A::Three()"* ]] || fail "new names are not shown: $said"
[[ $said == *"- _ZN1A3TwoEv"*"A::Two()"* ]] || fail "lost names are not shown: $said"

dll One _ZNSt6vectorIiE4dataEv
"$exports" renew names.dll list.txt >/dev/null && fail "lists a name of the standard library"
[ "$failures" = 0 ]
