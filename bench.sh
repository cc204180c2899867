#!/usr/bin/env bash
# Builds the benchmarks and prints the tables of bench/README.md anew.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
./build.sh --bench >&2
for program in build/native-release/bench/*_bench; do
  echo
  echo "$(basename "$program")"
  "$program"
done
