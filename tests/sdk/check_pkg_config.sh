#!/usr/bin/env bash
# Builds programs in C++ and in C with what pkg-config says of an SDK, wherever that lies. Skipped (77) with one line without pkg-config.
#
#   check_pkg_config.sh <sdk>
set -euo pipefail
command -v pkg-config >/dev/null || { echo "skipped: no pkg-config"; exit 77; }
export PKG_CONFIG_LIBDIR=$1/lib/pkgconfig
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
printf '#include <dlglib/dlglib.h>\nint main() { return CvUtility().CheckModelName("A-001") != 0 ? 0 : 1; }\n' >"$work/program.cpp"
printf '#include <dlglib/dlglib_c.h>\nint main(void) { return DlglibVersion() >= DLGLIB_VERSION ? 0 : 1; }\n' >"$work/program.c"
# Words of a shell: blanks and other letters of a path are quoted.
eval "said=($(pkg-config --cflags --libs dlglib))"
x86_64-w64-mingw32-g++-posix "$work/program.cpp" -o "$work/program.exe" "${said[@]}" -static
x86_64-w64-mingw32-gcc-posix "$work/program.c" -o "$work/program_c.exe" "${said[@]}"
[ "$(pkg-config --modversion dlglib)" = "$(sed -n 's/.*DLGLIB_VERSION_TEXT "\(.*\)"/\1/p' "$1/include/dlglib/version.h")" ]
