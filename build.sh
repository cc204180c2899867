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
  echo "Building $preset"
  cmake --build --preset "$preset" ${1:+--target "$@"} -- --quiet
}

# build_product [target...]: the DLLs and the demo, and what else is named; tests are not even configured.
build_product() {
  need_packages "${PRODUCT_PACKAGES[@]}"
  configure win64 -DBUILD_TESTING=OFF
  build win64 crvndlglib crvnsuite corvane-demo "$@"
  install_sdk
}

build_tests() {
  need_packages "${BUILD_PACKAGES[@]}"
  configure "$1" -DBUILD_TESTING=ON
  build "$1"
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
    build_product
    echo "The SDK is in build/sdk; ./demo.sh shows it, ./test.sh tests it."
    ;;
  --demo) build_product corvane-demo-driver ;;
  --tests)
    # One half sees the other's tests as well, when it looks for those that nobody runs.
    need_packages "${BUILD_PACKAGES[@]}"
    configure native-asan -DBUILD_TESTING=ON
    case "${2:-windows native}" in *windows*) build_tests win64 && install_sdk ;; esac
    case "${2:-windows native}" in *native*) build_tests native-asan ;; esac
    ;;
  --bench)
    need_packages "${BUILD_PACKAGES[@]}"
    configure native-release
    build native-release
    configure win64 -DBUILD_TESTING=OFF
    build win64 grid_bench browser_bench opening_bench
    ;;
  --coverage)
    need_packages "${BUILD_PACKAGES[@]}"
    # The counters are about one build; what an earlier one has left does not count.
    rm -rf build/native-coverage
    configure native-coverage
    build native-coverage
    ;;
  --docs)
    need_packages doxygen
    build_product
    docs/build.sh build/sdk build/docs
    echo "See build/docs/html/index.html"
    ;;
  --exports)
    need_packages "${PRODUCT_PACKAGES[@]}" python3
    configure win64 -DBUILD_TESTING=OFF
    build win64 crvndlglib crvnsuite
    cmake/exports.sh renew build/win64/bin/crvndlglib.dll dlglib/exports.txt
    cmake/exports.sh renew build/win64/bin/crvnsuite.dll platform/suite/exports.txt
    python3 -B cmake/c_declarations.py renew .
    python3 -B tests/layers/check_layouts.py x86_64-w64-mingw32-g++-posix . --renew
    ;;
  --fuzz)
    need_packages "${BUILD_PACKAGES[@]}" "${LONG_PACKAGES[@]}"
    configure native-fuzz
    build native-fuzz
    ;;
  --mutants)
    need_packages "${BUILD_PACKAGES[@]}"
    configure native-mutants -DBUILD_TESTING=ON
    build native-mutants
    configure native-asan -DBUILD_TESTING=ON
    build native-asan
    ;;
  --package)
    need_packages "${PRODUCT_PACKAGES[@]}" "${PACKAGE_PACKAGES[@]}"
    rm -rf build/win64-package build/package
    configure win64-package
    build win64-package
    echo "Packing"
    # Names of the demo's files are Japanese; in a locale without them they could not be packed.
    LC_ALL=C.UTF-8 cpack --config build/win64-package/CPackConfig.cmake -B build/package >build/package.log 2>&1 ||
      { cat build/package.log; exit 1; }
    rm -rf build/package/_CPack_Packages
    echo "The archive is in build/package: $(cd build/package && ls *.zip)"
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
