#!/usr/bin/env bash
# Reads the sources with clang-tidy: those that build natively with the native compiler's view, the others with that of
# mingw-w64. The literals are UTF-8 there, as clang knows no other execution character set; nothing is built or run.
#
#   tidy.sh      all sources
#   tidy.sh -    those that standard input names, relative to the root; a header stands for the source beside it
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. cmake/steps.sh
steps=2

configure() {
  local folder=$1
  shift
  mkdir -p build
  cmake -S . -B "$folder" -G Ninja -DDLGLIB_DEVELOPER=ON -DCMAKE_BUILD_TYPE=Debug -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON "$@" \
    >build/tidy.log 2>&1 ||
    { cat build/tidy.log; return 1; }
}

# The project's own files in a compilation database, one in a line, each once; what the build itself has written is not among
# them.
files() { sed -n 's/^  "file": "\(.*\)",\{0,1\}$/\1/p' "$1/compile_commands.json" | grep -F "$PWD/" | grep -vF "$PWD/build/" |
  grep '\.cpp$' | sort -u; }

read_all() {
  local folder=$1
  shift
  xargs --no-run-if-empty --max-procs="$(nproc)" --max-args=1 clang-tidy -p "$folder" --quiet "$@" 2>&1 | grep -v 'warnings generated\.$'
  return "${PIPESTATUS[0]}"
}

# Of the paths that come in, those to be read.
wanted=.
if [ "${1:-}" = - ]; then
  wanted=$(sed -n 's/\.\(cpp\|h\)$/.cpp/p' | sort -u | sed "s,^,^$PWD/,; s,\.cpp\$,[.]cpp\$,")
  [ -n "$wanted" ] || { echo "No source is among them"; exit 0; }
fi
chosen() { grep -f <(echo "$wanted") || true; }

bad=0
say "reading what builds natively"
configure build/tidy-native -DCMAKE_CXX_COMPILER=clang++ -DDLGLIB_BENCH=ON
files build/tidy-native | chosen | read_all build/tidy-native || bad=1

say "reading what builds for Windows only"
configure build/tidy-windows -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw64.cmake"
# clang does not look for the headers of the posix variant by itself, and lacks one option.
sed -i 's/ -fno-keep-inline-dllexport / /; s/ -fexec-charset=CP932 / /' build/tidy-windows/compile_commands.json
library=$(x86_64-w64-mingw32-g++-posix -print-file-name=include)/c++
comm -13 <(files build/tidy-native) <(files build/tidy-windows) | chosen |
  read_all build/tidy-windows --extra-arg-before=--target=x86_64-w64-mingw32 --extra-arg=-Wno-unknown-warning-option \
    --extra-arg="-isystem$library" --extra-arg="-isystem$library/x86_64-w64-mingw32" || bad=1
if [ "$bad" = 0 ]; then say_next "nothing is to be mended"; else say_next "mend what stands above"; fi
exit "$bad"
