#!/usr/bin/env bash
# Sees check_imports.sh notice an 8-bit call of the system and one of the C library, and let a wide program pass.
set -u
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 2
failures=0

# library <statement>: makes library.dll
library() {
  printf '#include <windows.h>\n#include <stdio.h>\n__declspec(dllexport) int Run(void) { %s return 0; }\n' "$1" >library.c
  x86_64-w64-mingw32-gcc-posix -O0 -shared -o library.dll library.c
}

library 'SetWindowTextW(0, L"x"); OutputDebugStringA("x");'
"$here/check_imports.sh" library.dll || { echo "a wide library is refused"; failures=$((failures + 1)); }
for statement in 'SetWindowTextA(0, "x");' 'fopen("x", "r");' 'RegDeleteValueA(0, "x");'; do
  library "$statement"
  said=$("$here/check_imports.sh" library.dll) && { echo "not noticed: $statement"; failures=$((failures + 1)); }
  [[ $said == *"${statement%%(*}"* ]] || { echo "not told: $statement: $said"; failures=$((failures + 1)); }
done
[ "$failures" = 0 ]
