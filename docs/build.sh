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
DLGLIB_OUTPUT=$(cd "$2" && pwd)
DLGLIB_INCLUDE=$sdk/include
DLGLIB_VERSION=$(sed -n 's/^set(PACKAGE_VERSION "\(.*\)")/\1/p' "$sdk/lib/cmake/dlglib/dlglib-config-version.cmake")
export DLGLIB_DOCS DLGLIB_OUTPUT DLGLIB_INCLUDE DLGLIB_VERSION

classic=
for header in controls strings window_ref; do classic="$classic $DLGLIB_INCLUDE/dlglib/platform/framework/$header.h"; done
printf '@INCLUDE = %s/Doxyfile\nEXCLUDE = %s\nGENERATE_HTML = NO\nGENERATE_XML = YES\n' "$DLGLIB_DOCS" "$classic" | doxygen -
printf '@INCLUDE = %s/Doxyfile\nWARN_IF_UNDOCUMENTED = NO\n' "$DLGLIB_DOCS" | doxygen -
