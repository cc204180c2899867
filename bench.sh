#!/usr/bin/env bash
# Builds the benchmarks and prints the tables of bench/README.md anew; those with windows run under Wine on a virtual display.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. cmake/packages.sh
./build.sh --bench >&2
need_packages "${RUN_PACKAGES[@]}" >&2
for program in build/native-release/bench/*_bench; do
  echo
  echo "$(basename "$program")"
  "$program"
done
for program in build/win64/bin/*_bench.exe; do
  echo
  echo "$(basename "$program" .exe)"
  cmake/wine-run.sh "$program"
done
