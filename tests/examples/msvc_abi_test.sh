#!/usr/bin/env bash
# Builds the example for the ABI of Microsoft's compilers and runs it beside the DLLs. Skipped (77) with one line where a tool is
# missing.
#
#   msvc_abi_test.sh <root of the tree> <folder of the DLLs> <program that runs programs for Windows>
set -euo pipefail
for tool in clang lld-link llvm-dlltool; do
  command -v "$tool" >/dev/null || { echo "skipped: no $tool"; exit 77; }
done
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# The C functions alone: names of C++ are of another compiler.
{ printf 'LIBRARY crvndlglib.dll\nEXPORTS\n'; grep '^Dlglib' "$1/dlglib/exports.txt"; } >"$work/crvndlglib.def"
cp "$2/crvndlglib.dll" "$2/crvnsuite.dll" "$work"
"$1/examples/c_msvc/build.sh" "$1" "$work/crvndlglib.def" "$work/convert_name.exe"
"$3" "$work/convert_name.exe" | tr -d '\r' >"$work/printed"
version=$(sed -n 's/.*DLGLIB_VERSION_TEXT "\(.*\)"/\1/p' "$1/dlglib/version.h")
printf '%s\n図面表\n' "$version" | diff - "$work/printed"
