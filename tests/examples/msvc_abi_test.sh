#!/usr/bin/env bash
# Builds the example for the ABI of Microsoft's compilers and runs it beside the DLLs. Skipped (77) with one line where a tool is
# missing.
#
#   msvc_abi_test.sh <root of the tree> <folder of the DLLs> <program that runs programs for Windows>
#   msvc_abi_test.sh <unpacked archive> archive <program that runs programs for Windows>
set -euo pipefail
for tool in clang lld-link llvm-dlltool; do
  command -v "$tool" >/dev/null || { echo "skipped: no $tool"; exit 77; }
done
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
if [ "$2" = archive ]; then
  programs=$1/bin headers=$1/include library=$1/lib/crvndlglib.lib
else
  programs=$2 headers=$1 library=$work/crvndlglib.lib
  # The C functions alone: names of C++ are of another compiler.
  { printf 'LIBRARY crvndlglib.dll\nEXPORTS\n'; grep '^Dlglib' "$1/dlglib/exports.txt"; } >"$work/crvndlglib.def"
  llvm-dlltool -m i386:x86-64 -d "$work/crvndlglib.def" -l "$library"
fi
cp "$programs/crvndlglib.dll" "$programs/crvnsuite.dll" "$work"
bash "$1/examples/c_msvc/build.sh" "$headers" "$library" "$work/convert_name.exe"
"$3" "$work/convert_name.exe" | tr -d '\r' >"$work/printed"
version=$(sed -n 's/.*DLGLIB_VERSION_TEXT "\(.*\)"/\1/p' "$headers/dlglib/version.h")
printf '%s\n図面表\n' "$version" | diff - "$work/printed"
