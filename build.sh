#!/usr/bin/env bash
# Builds everything and installs the SDK into build/sdk. Quick when nothing has changed.
#
#   ./build.sh            native-asan and win64, then the SDK
#   ./build.sh --bench    the benchmarks only (native-release, and win64 for those with windows)
#   ./build.sh --coverage the core and its tests with counted branches (native-coverage)
#   ./build.sh --docs     the reference of the public headers, in build/docs/html, after everything is built
#   ./build.sh --exports  writes the lists of what the DLLs export anew (dlglib/exports.txt, platform/suite/exports.txt)
#   ./build.sh --fuzz     the fuzzers only (native-fuzz, needs clang)
#   ./build.sh --mutants  the core and its tests, from which mutants are built (native-mutants, native-asan)
#   ./build.sh --tidy     reads all sources with clang-tidy instead (slow)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. cmake/packages.sh

# build preset [target...]
build() {
  local preset=$1
  shift
  mkdir -p build
  echo "Building $preset"
  # Configured each time, so that changed presets count; it takes a second or two.
  cmake --preset "$preset" >"build/$preset.log" 2>&1 || { cat "build/$preset.log"; return 1; }
  cmake --build --preset "$preset" ${1:+--target "$@"} -- --quiet
}

install_sdk() {
  echo "Installing the SDK into build/sdk"
  rm -rf build/sdk.new
  cmake --install build/win64 --prefix build/sdk.new >build/install.log || { cat build/install.log; return 1; }
  rm -rf build/sdk
  mv build/sdk.new build/sdk
}

# A compiler cache is used when there is one.
if command -v ccache >/dev/null; then
  export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}
  # What it asks for to work with precompiled headers.
  export CCACHE_SLOPPINESS=${CCACHE_SLOPPINESS-pch_defines,time_macros}
fi
case "${1:-}" in
  "")
    need_packages "${BUILD_PACKAGES[@]}"
    build native-asan
    build win64
    install_sdk
    ;;
  --bench)
    need_packages "${BUILD_PACKAGES[@]}"
    build native-release
    build win64 grid_bench browser_bench opening_bench
    ;;
  --coverage)
    need_packages "${BUILD_PACKAGES[@]}"
    # The counters are about one build; what an earlier one has left does not count.
    rm -rf build/native-coverage
    build native-coverage
    ;;
  --docs)
    need_packages "${BUILD_PACKAGES[@]}" doxygen
    "./$(basename "$0")"
    docs/build.sh build/sdk build/docs
    echo "See build/docs/html/index.html"
    ;;
  --exports)
    need_packages "${BUILD_PACKAGES[@]}"
    build win64 crvndlglib crvnsuite
    cmake/exports.sh renew build/win64/bin/crvndlglib.dll dlglib/exports.txt
    cmake/exports.sh renew build/win64/bin/crvnsuite.dll platform/suite/exports.txt
    ;;
  --fuzz)
    need_packages "${BUILD_PACKAGES[@]}" "${LONG_PACKAGES[@]}"
    build native-fuzz
    ;;
  --mutants)
    need_packages "${BUILD_PACKAGES[@]}"
    build native-mutants
    build native-asan
    ;;
  --tidy)
    need_packages "${BUILD_PACKAGES[@]}" "${TIDY_PACKAGES[@]}"
    exec cmake/tidy.sh
    ;;
  *)
    sed -n '2,11s/^# \{0,1\}//p' "$0"
    exit 2
    ;;
esac
