#!/usr/bin/env bash
# Makes the reference of the public headers of an installed SDK, and answers 1 when anything in them is wrongly or not described.
#
#   docs/build.sh <sdk> <output folder>      index.html is in <output folder>/html
#
# Every declaration has a comment, with three exceptions: the framework's controls, bare windows and strings bear classic names and do
# what those say, so that only what is special there is described.
set -eu
DLGLIB_DOCS=$(cd "$(dirname "$0")" && pwd)
sdk=$(cd "$1" && pwd)
mkdir -p "$2"
output=$(cd "$2" && pwd)
include=$sdk/include
DLGLIB_VERSION=$(sed -n 's/^set(PACKAGE_VERSION "\(.*\)")/\1/p' "$sdk/lib/cmake/dlglib/dlglib-config-version.cmake")
export DLGLIB_DOCS DLGLIB_VERSION

# Paths stand here and in quotes: of a variable Doxygen makes several where it holds blanks.
settings() {
  printf '@INCLUDE = %s/Doxyfile\n' "$DLGLIB_DOCS"
  printf 'INPUT = "%s/dlglib"\nSTRIP_FROM_PATH = "%s"\nSTRIP_FROM_INC_PATH = "%s"\n' "$include" "$include" "$include"
  printf 'OUTPUT_DIRECTORY = "%s"\n' "$output"
}
classic() {
  local header
  for header in controls strings window_ref; do printf 'EXCLUDE += "%s/dlglib/platform/framework/%s.h"\n' "$include" "$header"; done
}
{ settings; classic; printf 'GENERATE_HTML = NO\nGENERATE_XML = YES\n'; } | doxygen -
{ settings; printf 'WARN_IF_UNDOCUMENTED = NO\n'; } | doxygen -
