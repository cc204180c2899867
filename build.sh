#!/usr/bin/env bash
# Builds everything and installs the SDK into build/sdk. Quick when nothing has changed.
#
#   ./build.sh            native-asan and win64, then the SDK
#   ./build.sh --bench    the benchmarks as well (native-release)
#   ./build.sh --tidy     reads all sources with clang-tidy instead (slow)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. cmake/packages.sh

build() {
  local preset=$1
  mkdir -p build
  if [ ! -f "build/$preset/build.ninja" ]; then
    echo "Configuring $preset"
    cmake --preset "$preset" >"build/$preset.log" 2>&1 || { cat "build/$preset.log"; return 1; }
  fi
  echo "Building $preset"
  cmake --build --preset "$preset" -- --quiet
}

install_sdk() {
  echo "Installing the SDK into build/sdk"
  rm -rf build/sdk.new
  cmake --install build/win64 --prefix build/sdk.new >build/install.log || { cat build/install.log; return 1; }
  rm -rf build/sdk
  mv build/sdk.new build/sdk
}

tidy() {
  need_packages $BUILD_PACKAGES $TIDY_PACKAGES
  cmake/tidy.sh
}

bench=
case "${1:-}" in
  "") ;;
  --bench) bench=1 ;;
  --tidy) tidy; exit ;;
  *) sed -n '2,6s/^# \{0,1\}//p' "$0"; exit 2 ;;
esac

need_packages $BUILD_PACKAGES ${bench:+$BENCH_PACKAGES}
# A compiler cache is used when there is one.
if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}; fi
build native-asan
build win64
[ -z "$bench" ] || build native-release
install_sdk
