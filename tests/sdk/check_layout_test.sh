#!/usr/bin/env bash
# Sees check_layout.sh refuse a broken SDK of each sort.
#
#   check_layout_test.sh <sdk>
set -u
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

# refuses <what it must say> <command that breaks the copy in ./sdk>
refuses() {
  rm -rf "$work/sdk"
  cp -a "$sdk" "$work/sdk"
  (cd "$work/sdk" && eval "$2") || { echo "cannot break it: $2"; failures=$((failures + 1)); return; }
  local said
  if said=$("$here/check_layout.sh" "$work/sdk" 2>&1) || [[ $said != *"$1"* ]]; then
    echo "not noticed: $2: $said"
    failures=$((failures + 1))
  fi
}

sdk=$(cd "$1" && pwd)
refuses 'lib holds' 'touch lib/libdlglib_core.a'
refuses 'bin holds' 'rm bin/crvnsuite.dll'
refuses 'dlglib.h is missing' 'rm include/dlglib/dlglib.h'
refuses 'the SDK holds' 'mkdir share'

# A DLL that needs the compiler's run-time library.
cat >"$work/dynamic.cpp" <<'CODE'
#include <string>
__declspec(dllexport) std::string Text(int n) { return std::to_string(n); }
CODE
refuses 'crvnsuite.dll needs libstdc++-6' 'x86_64-w64-mingw32-g++-posix -shared -o bin/crvnsuite.dll "$work/dynamic.cpp"'

# A member function called MessageBox: clients see CvUtility::MessageBoxA or MessageBoxW, as their UNICODE setting has it.
printf 'EXPORTS\n_ZN9CvUtility10MessageBoxEv\n' >"$work/macro.def"
refuses 'the name of a macro: MessageBox' \
  'x86_64-w64-mingw32-dlltool -d "$work/macro.def" -D crvndlglib.dll -l lib/libcrvndlglib.dll.a'

[ "$failures" = 0 ]
