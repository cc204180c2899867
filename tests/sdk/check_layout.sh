#!/usr/bin/env bash
# Checks an installed SDK: the files that belong there and no others, DLLs that need nothing but the system and each other, exported
# names that no Win32 macro rewrites.
#
#   check_layout.sh <sdk> [archive]    archive: what comes beside the SDK there is looked at by check_archive.py
set -u
cd "$1" || exit 2
export LC_ALL=C
bad=0
complain() {
  echo "$*"
  bad=1
}
tool() { "x86_64-w64-mingw32-$1" "${@:2}"; }

expect_files() {
  local folder=$1 found
  shift
  found=$(cd "$folder" 2>/dev/null && find . -type f | sort | sed 's,^\./,,' | tr '\n' ' ')
  [ "$found" = "$(printf '%s\n' "$@" | sort | tr '\n' ' ')" ] || complain "$folder holds: $found"
}
more_lib=()
if [ "${2:-}" = archive ]; then
  more_lib=(crvndlglib.lib dlglib.def)
else
  [ "$(ls)" = "$(printf 'bin\ninclude\nlib')" ] || complain "the SDK holds: $(ls | tr '\n' ' ')"
  expect_files bin crvndlglib.dll crvnsuite.dll corvane-demo.exe
fi
expect_files lib "${more_lib[@]}" libcrvndlglib.dll.a libcrvnsuite.dll.a cmake/dlglib/dlglib-config.cmake \
  cmake/dlglib/dlglib-config-version.cmake cmake/dlglib/dlglib-targets.cmake cmake/dlglib/dlglib-targets-relwithdebinfo.cmake \
  pkgconfig/dlglib.pc
[ -z "$(find include -mindepth 1 -maxdepth 1 ! -name dlglib ! -name platform)" ] || complain "include holds more than dlglib and platform"
for header in $(find include/platform -type f); do
  [ "$(grep -c . "$header")" = 3 ] && [ -f "include/dlglib/${header#include/}" ] || complain "$header does not lead to the new place"
done
[ -f include/dlglib/dlglib.h ] || complain "include/dlglib/dlglib.h is missing"

# ---- what each program needs
system='advapi32|comctl32|comdlg32|gdi32|imm32|kernel32|mpr|msvcrt|ole32|oleacc|oleaut32|shell32|shlwapi|user32|uxtheme|version'
needs() { tool objdump -p "$1" | sed -n 's/.*DLL Name: //p' | tr '[:upper:]' '[:lower:]' | sed 's/\.dll$//' | grep -vxE "$2"; }
for needed in $(needs bin/crvnsuite.dll "$system"); do complain "crvnsuite.dll needs $needed"; done
for needed in $(needs bin/crvndlglib.dll "$system"); do complain "crvndlglib.dll needs $needed"; done
for needed in $(needs bin/corvane-demo.exe "$system|crvnsuite|crvndlglib"); do complain "corvane-demo.exe needs $needed"; done

# ---- exported names: the last part of each function's name
exports() {
  tool nm --format=posix "$1" | sed -n 's/^__imp_\([^ ]*\) .*/\1/p' | tool c++filt | sed -e 's/(.*//' -e 's/.*:://' | sort -u
}
macros=$(printf '#include <windows.h>\n#include <commctrl.h>\n' | tool g++-posix -x c++ -E -dM - |
  sed -n 's/^#define \([A-Z][A-Za-z]*[a-z][A-Za-z]*\)[ (].*/\1/p' | sort -u)
for library in lib/*.dll.a; do
  names=$(exports "$library")
  [ -n "$names" ] || complain "$library exports nothing"
  for name in $(comm -12 <(echo "$names") <(echo "$macros")); do
    complain "$library exports a function with the name of a macro: $name"
  done
done

exit "$bad"
