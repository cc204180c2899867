#!/usr/bin/env bash
# Builds everything and runs every test: the core natively under the sanitizers, the library's windows under Wine on a virtual
# display, an external client of the installed SDK, the rules for sources. Ends with one line: N passed, N failed.
#
#   ./test.sh             all of that
#   ./test.sh --coverage  only the native tests, and which branches of the core and the suite they take
#   ./test.sh --mutants [n [start]]  only the native tests, and which of n (60) small changes of the core they do not notice
#   ./test.sh --long      and what takes long: every fault, the soak, all pairs of characters, each fuzzer for a minute
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")" || exit 1
. cmake/packages.sh
. cmake/wine-env.sh

passed=0
failed=0

finish() {
  local code=$?
  trap - EXIT INT TERM
  wine_server_stop
  (wine_use_second; wine_server_stop)
  wine_display_stop
  [ -z "${client_build:-}" ] || kill "$client_build" 2>/dev/null
  # Given up half-way: what was not run has not passed.
  if [ "$code" != 0 ] && [ "$failed" = 0 ]; then failed=1; fi
  echo "$passed passed, $failed failed"
  exit $((failed > 0))
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# Runs the tests of one build folder and adds up the single results of its test programs.
run_tests() {
  local title=$1 folder=$2
  shift 2
  echo "== $title"
  mkdir -p "$folder/test-results"
  rm -f "$folder"/test-results/*.xml "$folder/ctest.xml"
  ctest --test-dir "$folder" --output-on-failure --no-tests=error --output-junit ctest.xml "$@" </dev/null
  local counts
  counts=$(awk -f cmake/count_tests.awk -v results="$folder/test-results" "$folder/ctest.xml") || counts="0 1"
  read -r good bad <<<"$counts"
  echo "$title: $good passed, $bad failed"
  passed=$((passed + good))
  failed=$((failed + bad))
}

# A client of the SDK in a build tree of its own, which knows nothing but the SDK's folder.
build_sdk_client() {
  nice cmake -S tests/sdk -B build/sdk-client -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw64.cmake" -DCMAKE_CROSSCOMPILING_EMULATOR="$PWD/cmake/wine-run.sh" \
    -DCMAKE_PREFIX_PATH="$PWD/build/sdk" -DCMAKE_BUILD_TYPE=RelWithDebInfo >build/sdk-client.log 2>&1 &&
    nice cmake --build build/sdk-client -- --quiet >>build/sdk-client.log 2>&1
}

# ---- What --long adds: one function each, in this order. Wine's servers and displays are up, the win64 build is done.
long_steps=(faults_and_soak fuzz)

# Every fault, a thousand runs of each dialog, and every pair of characters in a path.
faults_and_soak() {
  run_tests "faults and pairs, native" build/native-asan -C long -R '_long$'
  run_tests "faults and soak, windows" build/win64 -C long -R '_long$' --parallel 2 \
    --resource-spec-file "$PWD/cmake/displays.json"
}

# Each fuzzer for a minute, two at a time, from its checked-in inputs.
fuzz() {
  ./build.sh --fuzz || { failed=$((failed + 1)); return; }
  run_tests "fuzzers" build/native-fuzz --parallel 2
  awk '/^stat::number_of_executed_units/ { sub(/.*\//, "", FILENAME); print "  " FILENAME ": " $2 " inputs" }' \
    build/native-fuzz/fuzz/*.log
}

# What the native tests leave out; nothing else is run.
coverage() {
  need_packages "${BUILD_PACKAGES[@]}" "${COVERAGE_PACKAGES[@]}" || exit 1
  ./build.sh --coverage || exit 1
  run_tests "native" build/native-coverage --parallel 2
  python3 cmake/coverage.py . build/native-coverage tests/untaken_branches.txt || failed=$((failed + 1))
  exit $((failed > 0))
}

# Which small changes of the core no native test notices; nothing else is run. Those that the quick build does not notice are tried
# again under the sanitizers.
mutants() {
  need_packages "${BUILD_PACKAGES[@]}" "${MUTANTS_PACKAGES[@]}" || exit 1
  ./build.sh --mutants || exit 1
  run_tests "native" build/native-mutants --parallel 2 -L native
  [ "$failed" = 0 ] || exit 1
  python3 -B tests/mutants/unnoticed.py . build/native-mutants tests/unnoticed_mutants.txt "$@" --again build/native-asan ||
    failed=$((failed + 1))
  exit $((failed > 0))
}

long=
case "${1:-}" in
  "") ;;
  --coverage) coverage ;;
  --mutants) shift; mutants "$@" ;;
  --long) long=1 ;;
  *) sed -n '2,8s/^# \{0,1\}//p' "$0"; exit 2 ;;
esac

[ -z "$long" ] || need_packages "${LONG_PACKAGES[@]}" || exit 1
need_packages "${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}" "${CHECK_PACKAGES[@]}" || exit 1
./build.sh || exit 1
run_tests "native" build/native-asan --parallel 2

wine_prepare || exit 1
wine_second_prepare || exit 1
wine_display_start || exit 1
wine_display_start || exit 1
wine_server_start
(wine_use_second; wine_server_start)
# The client is built while the window tests wait for their windows.
build_sdk_client &
client_build=$!
run_tests "windows" build/win64 --parallel 2 --resource-spec-file "$PWD/cmake/displays.json"
if wait "$client_build"; then
  run_tests "sdk client" build/sdk-client
else
  cat build/sdk-client.log
  failed=$((failed + 1))
fi
if [ -n "$long" ]; then
  for step in "${long_steps[@]}"; do "$step"; done
fi
exit $((failed > 0))
