#!/usr/bin/env bash
# Sees the package refuse, in one sentence, each compiler and run-time library that cannot work, and take those that can.
#
#   check_refusals.sh <sdk> <toolchain file>
set -u
sdk=$(cd "$1" && pwd) toolchain=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

# configure <languages> [option...]: a program that needs the package. Gives what CMake says.
configure() {
  rm -rf "$work/program"
  mkdir -p "$work/program"
  printf 'cmake_minimum_required(VERSION 3.25)\nproject(program LANGUAGES %s)\nfind_package(dlglib CONFIG REQUIRED)\n' "$1" \
    >"$work/program/CMakeLists.txt"
  cmake -S "$work/program" -B "$work/program/build" -G Ninja -DCMAKE_PREFIX_PATH="$sdk" "${@:2}" 2>&1
}

takes() {
  local said
  said=$(configure "$@") || { echo "refused: $*: $said"; failures=$((failures + 1)); }
}

# refuses <sentence> <languages> [option...]
refuses() {
  local said
  if said=$(configure "${@:2}") || [[ $(tr -s ' \n' ' ' <<<"$said") != *"$1"* ]]; then
    echo "not refused with \"$1\": ${*:2}: $said"
    failures=$((failures + 1))
  fi
}

# The other run-time libraries are played: by the macro that their headers define, and by headers that are not there.
mingw=(-DCMAKE_TOOLCHAIN_FILE="$toolchain")
takes CXX "${mingw[@]}"
takes C "${mingw[@]}"
takes "C CXX" "${mingw[@]}" -DCMAKE_C_FLAGS=-D_UCRT
refuses 'built for msvcrt.dll, and this compiler is for UCRT' CXX "${mingw[@]}" -DCMAKE_CXX_FLAGS=-D_UCRT
refuses 'need libstdc++, and this compiler has another' CXX "${mingw[@]}" -DCMAKE_CXX_FLAGS=-nostdinc++
refuses 'dlglib is for 64-bit programs for Windows' CXX
if command -v clang >/dev/null; then
  for language in C CXX; do
    refuses 'this compiler has the ABI of MSVC' "$language" -DCMAKE_SYSTEM_NAME=Windows -DCMAKE_TRY_COMPILE_TARGET_TYPE=STATIC_LIBRARY \
      -DCMAKE_"$language"_COMPILER=clang -DCMAKE_"$language"_COMPILER_TARGET=x86_64-pc-windows-msvc \
      -DCMAKE_"$language"_COMPILER_WORKS=ON -DCMAKE_SIZEOF_VOID_P=8 -DCMAKE_AR=/bin/true
  done
fi
[ "$failures" = 0 ]
