#!/usr/bin/env bash
# Builds the small DLL in two folders of different names, from two copies of the sources, and compares: nothing of the time or the place of
# a build may be left in it.
#
#   check_reproducible.sh <root of the sources> <folder to work in>
set -euo pipefail
sources=$1 work=$2
rm -rf "$work"
unset CMAKE_CXX_COMPILER_LAUNCHER

# build_in <folder>
build_in() {
  mkdir -p "$work/$1"
  (cd "$sources" && git ls-files -z | xargs -0 cp --parents -t "$work/$1")
  cmake -S "$work/$1" -B "$work/$1/out-of-$1" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$work/$1/cmake/mingw64.cmake" \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo -DBUILD_TESTING=OFF >"$work/$1.log" 2>&1 || { cat "$work/$1.log"; return 1; }
  cmake --build "$work/$1/out-of-$1" --target crvnsuite -- --quiet
}
build_in first
build_in "second build"
cmp "$work/first/out-of-first/bin/crvnsuite.dll" "$work/second build/out-of-second build/bin/crvnsuite.dll"
