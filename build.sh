#!/usr/bin/env bash
# Builds the library and installs its SDK into build/sdk. Quick when nothing has changed.
#
#   ./build.sh            the DLLs and the demo (win64), then the SDK
#   ./build.sh --demo     the same with the program that uses the demo where nobody does
#   ./build.sh --tests [windows|native]   what ./test.sh runs, or one half of it; the SDK comes with the half for Windows
#   ./build.sh --bench    the benchmarks only (native-release, and win64 for those with windows)
#   ./build.sh --coverage the core and its tests with counted branches (native-coverage)
#   ./build.sh --docs     the reference of the public headers, in build/docs/html, after the SDK
#   ./build.sh --exports  writes the lists of what the DLLs export and how classes are laid out anew (exports.txt, layouts.txt), and what is made from the C headers
#   ./build.sh --fuzz     the fuzzers only (native-fuzz, needs clang)
#   ./build.sh --mutants  the core and its tests, from which mutants are built (native-mutants, native-asan)
#   ./build.sh --package  the archive in build/package, from a clean build
#   ./build.sh --tidy     reads all sources with clang-tidy instead (slow); with "-" those that standard input names
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. cmake/packages.sh
. cmake/steps.sh

# configure preset [option...]: each time, so that changed presets count; it takes a second or two.
configure() {
  local preset=$1
  shift
  mkdir -p build
  cmake --preset "$preset" "$@" >"build/$preset.log" 2>&1 || { cat "build/$preset.log"; return 1; }
}

# build preset [target...]
build() {
  local preset=$1
  shift
  NINJA_STATUS="$progress_status " cmake --build --preset "$preset" ${1:+--target "$@"} | show_progress
}

# build_product [target...]: the DLLs and the demo, and what else is named; tests are not even configured.
build_product() {
  need_packages "${PRODUCT_PACKAGES[@]}"
  say "building the library and the demo (win64)"
  configure win64 -DBUILD_TESTING=OFF
  build win64 crvndlglib crvnsuite corvane-demo "$@"
  install_sdk
}

build_tests() {
  say "building the tests ($1)"
  configure "$1" -DBUILD_TESTING=ON
  build "$1"
}

install_sdk() {
  say "installing the SDK into build/sdk"
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
  "" | --demo)
    steps=2
    if [ "${1:-}" = --demo ]; then build_product corvane-demo-driver; else build_product; fi
    say_next "./demo.sh shows the library, ./test.sh tests it; its SDK is build/sdk"
    ;;
  --tests)
    halves=${2:-windows native}
    case $halves in windows) steps=2 ;; native) steps=1 ;; *) steps=3 ;; esac
    # One half sees the other's tests as well, when it looks for those that nobody runs.
    need_packages "${BUILD_PACKAGES[@]}"
    configure native-asan -DBUILD_TESTING=ON
    case $halves in *windows*) build_tests win64; install_sdk ;; esac
    case $halves in *native*) build_tests native-asan ;; esac
    say_next "./test.sh runs them; ctest --test-dir build/native-asan -R <name> runs one"
    ;;
  --bench)
    steps=2
    need_packages "${BUILD_PACKAGES[@]}"
    say "building those without windows (native-release)"
    configure native-release
    build native-release
    say "building those with windows (win64)"
    configure win64 -DBUILD_TESTING=OFF
    build win64 grid_bench browser_bench opening_bench
    say_next "./bench.sh runs them"
    ;;
  --coverage)
    need_packages "${BUILD_PACKAGES[@]}"
    say "building with counted branches (native-coverage)"
    # The counters are about one build; what an earlier one has left does not count.
    rm -rf build/native-coverage
    configure native-coverage
    build native-coverage
    say_next "./test.sh --coverage counts them"
    ;;
  --docs)
    steps=3
    need_packages doxygen
    build_product
    say "writing the pages"
    docs/build.sh build/sdk build/docs
    say_next "see build/docs/html/index.html"
    ;;
  --exports)
    steps=2
    need_packages "${PRODUCT_PACKAGES[@]}" python3
    say "building the DLLs (win64)"
    configure win64 -DBUILD_TESTING=OFF
    build win64 crvndlglib crvnsuite
    say "writing the lists"
    cmake/exports.sh renew build/win64/bin/crvndlglib.dll dlglib/exports.txt
    cmake/exports.sh renew build/win64/bin/crvnsuite.dll platform/suite/exports.txt
    python3 -B cmake/c_declarations.py renew .
    python3 -B tests/layers/check_layouts.py x86_64-w64-mingw32-g++-posix . --renew
    say_next "git diff shows what has changed in them"
    ;;
  --fuzz)
    need_packages "${BUILD_PACKAGES[@]}" "${LONG_PACKAGES[@]}"
    say "building the fuzzers (native-fuzz)"
    configure native-fuzz
    build native-fuzz
    say_next "fuzz/README.md says how to run them"
    ;;
  --mutants)
    steps=2
    need_packages "${BUILD_PACKAGES[@]}"
    say "building what mutants are built from (native-mutants)"
    configure native-mutants -DBUILD_TESTING=ON
    build native-mutants
    say "building what tries them again (native-asan)"
    configure native-asan -DBUILD_TESTING=ON
    build native-asan
    say_next "./test.sh --mutants runs them"
    ;;
  --package)
    steps=2
    need_packages "${PRODUCT_PACKAGES[@]}" "${PACKAGE_PACKAGES[@]}"
    rm -rf build/win64-package build/package
    say "building all of it anew (win64-package)"
    configure win64-package
    build win64-package
    say "packing"
    # Names of the demo's files are Japanese; in a locale without them they could not be packed.
    LC_ALL=C.UTF-8 cpack --config build/win64-package/CPackConfig.cmake -B build/package >build/package.log 2>&1 ||
      { cat build/package.log; exit 1; }
    rm -rf build/package/_CPack_Packages
    say_next "the archive is in build/package: $(cd build/package && ls *.zip)"
    ;;
  --tidy)
    need_packages "${BUILD_PACKAGES[@]}" "${TIDY_PACKAGES[@]}"
    exec cmake/tidy.sh "${2:-}"
    ;;
  *)
    sed -n '2,14s/^# \{0,1\}//p' "$0"
    exit 2
    ;;
esac
