#!/usr/bin/env bash
# Checks that every source looks as .clang-format says. Versions of clang-format differ, so only the one that the files were
# formatted with is asked; without it nothing is checked, which 77 says.
#
#   check_format.sh <root of the tree>
set -u
cd "$1" || exit 2
format=
for name in clang-format-14 clang-format; do
  if "$name" --version 2>/dev/null | grep -q 'version 14\.'; then format=$name; break; fi
done
[ -n "$format" ] || { echo "Not checked: that takes clang-format 14"; exit 77; }
find dlglib platform demo tests bench fuzz examples -type f \( -name '*.h' -o -name '*.cpp' -o -name '*.c' \) -print0 2>/dev/null |
  xargs -0 --no-run-if-empty "$format" --dry-run -Werror
