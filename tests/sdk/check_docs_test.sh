#!/usr/bin/env bash
# Sees docs/build.sh refuse headers with a declaration that has no comment, and with a comment that says something wrong.
#
#   check_docs_test.sh <sdk>
set -u
build=$(cd "$(dirname "$0")/../../docs" && pwd)/build.sh
sdk=$(cd "$1" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

# refuses <what it must say> <public header> <lines to add>
refuses() {
  mkdir -p "$work/sdk/include/dlglib" "$work/sdk/lib/cmake/dlglib"
  cp "$sdk/lib/cmake/dlglib/dlglib-config-version.cmake" "$work/sdk/lib/cmake/dlglib/"
  { cat "$sdk/include/$2"; printf '%b' "$3"; } >"$work/sdk/include/dlglib/header.h"
  local said
  if said=$("$build" "$work/sdk" "$work/docs" 2>&1) || [[ $said != *"$1"* ]]; then
    echo "not noticed: $3: $said"
    failures=$((failures + 1))
  fi
}

refuses 'Silent' dlglib/dlglib_c.h '\nint Silent(int a);\n'
refuses "'other'" dlglib/dlglib_c.h '\n/// Takes.\n/// @param other is not there\nint Wrong(int a);\n'
[ "$failures" = 0 ]
