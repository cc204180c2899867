#!/usr/bin/env bash
# Builds the benchmarks, runs them all and prints one table of what they found; bench/README.md says how to read it. Takes some
# minutes. The programs, the Wine server and the virtual display share one processor, so that a time is the sum of their work.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")" || exit 1
. cmake/packages.sh
. cmake/steps.sh
. cmake/wine-env.sh
need_packages "${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}" >&2 || exit 1
wine_display_try || exit 1

native_benches=(encoding editing)
window_benches=(opening browser grid)
steps=$((2 + ${#native_benches[@]} + ${#window_benches[@]}))
say "building the benchmarks" >&2
./build.sh --bench >&2 || exit 1
wine_prepare >&2 || exit 1

finish() {
  wine_server_stop
  wine_displays_stop
  rm -rf build/bench
}

pin() {
  local processors
  processors=$(taskset --cpu-list --pid $$)
  taskset --cpu-list --pid "${processors##*[ ,-]}" $$ >/dev/null
}

make_folders() {
  say "making the folders, of up to 100 000 files" >&2
  rm -rf build/bench
  for count in 0 1000 10000 100000; do bench/model_folder.sh "build/bench/$count" "$count"; done
}

run_all() {
  for name in "${native_benches[@]}"; do
    say "running ${name}_bench" >&2
    "build/native-release/bench/${name}_bench"
  done
  for name in "${window_benches[@]}"; do
    say "running ${name}_bench" >&2
    cmake/wine-run.sh "build/win64/bin/${name}_bench.exe" "Z:$PWD/build/bench"
  done
}

# A server that runs already would not be pinned.
exec 8>build/wine-run.lock
flock 8
trap finish EXIT
wine_server_stop
pin
wine_displays_start 1 || exit 1
wine_server_start
make_folders || exit 1
run_all 8>&- | awk -f bench/table.awk
code=$?
say_next "bench/README.md says how to read the table" >&2
exit "$code"
