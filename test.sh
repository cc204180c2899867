#!/usr/bin/env bash
# Builds everything and runs every test: the core natively under the sanitizers, the library's windows under Wine on a virtual
# display, an external client of the installed SDK, the rules for sources. Ends with one line: N passed, N failed.
#
#   ./test.sh             all of that
#   ./test.sh --coverage  only the native tests, and which branches of the core and the suite they take
#   ./test.sh --mutants [n [start]]  only the native tests, and which of n (60) small changes of the core they do not notice
#   ./test.sh --long      and what takes long: every fault, the soak, all pairs of characters, each fuzzer for a minute, the archive
#   ./test.sh --ci        all of that but the long runs, and what a change must stand: its sources read by clang-tidy, the branches
#                         that the tests take, each fuzzer for some seconds, a build against a suite with libraries of its own, the archive
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")" || exit 1
. cmake/packages.sh
. cmake/steps.sh
. cmake/wine-env.sh

passed=0
failed=0
skipped=0
dpis=(192)  # of the screens on which some tests run once more; their prefixes are made beforehand
displays=4  # as many as cmake/displays.json gives away

# each_prefix command...: in the prefix of each display.
each_prefix() {
  local k
  for ((k = 1; k <= displays; ++k)); do (wine_use "$k"; "$@"); done
}

steps=4  # without those that an option adds
tested=  # not empty when a test has been run

# Before the first step nothing was begun, and what is missing has been said in one line.
finish() {
  local code=$?
  trap - EXIT INT TERM
  if [ "$step" = 0 ]; then
    wine_displays_stop
    exit "$code"
  fi
  each_prefix wine_server_stop
  (wine_use_code_page 1252 && each_prefix wine_server_stop)
  for dpi in "${dpis[@]}"; do (wine_use_dpi "$dpi" && each_prefix wine_server_stop); done
  wine_displays_stop
  [ -z "${native:-}" ] || kill -- "-$native" 2>/dev/null
  # Given up half-way: what was not run has not passed.
  if [ "$code" != 0 ] && [ "$failed" = 0 ]; then failed=1; fi
  say_times
  [ "$failed" = 0 ] && [ -n "$tested" ] && say_next "./demo.sh shows the library, ./build.sh --package makes the archive that is passed on"
  [ "$failed" = 0 ] || [ -z "$tested" ] || echo "What failed stands above, behind \"The following tests FAILED\"; one of them alone: ctest --test-dir build/win64 -R <name>"
  if [ "$skipped" = 0 ]; then echo "$passed passed, $failed failed"; else echo "$passed passed, $failed failed, $skipped skipped"; fi
  exit $((failed > 0))
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# Runs the tests of one build folder; its results wait for add_results.
run_tests() {
  local folder=$1
  shift
  mkdir -p "$folder/test-results"
  rm -f "$folder"/test-results/*.xml "$folder/ctest.xml"
  ctest --test-dir "$folder" --output-on-failure --no-tests=error --output-junit ctest.xml "$@" </dev/null
}

# Windows share screen, input and clock with whatever else the machine does. A program that fails is therefore run once more at once; what
# passes only then is named, as it is a fault of a test or of the library that has still to be found.
run_window_tests() {
  local log=build/win64/ctest.log second
  run_tests build/win64 --parallel "$displays" --resource-spec-file "$PWD/cmake/displays.json" --repeat until-pass:2 | tee "$log"
  second=$(awk 'sub(/^.*Test +#[0-9]+: /, "") { if (/\*\*\*(Failed|Exception|Timeout)/) failed[$1] = 1; else if ($1 in failed) print $1 }' "$log")
  [ -z "$second" ] || echo "Passed at the second try only, what failed stands above:" $second
}

# Adds up the single results of the test programs of one build folder.
add_results() {
  local title=$1 folder=$2 counts good bad left
  counts=$(awk -f cmake/count_tests.awk -v results="$folder/test-results" "$folder/ctest.xml") || counts="0 1 0"
  read -r good bad left <<<"$counts"
  tested=1
  echo "$title: $good passed, $bad failed"
  passed=$((passed + good))
  failed=$((failed + bad))
  skipped=$((skipped + left))
}

# build_client <sdk> <build folder> [option...]: a client of an SDK in a build tree of its own, which knows nothing but the SDK's folder.
build_client() {
  nice cmake -S tests/sdk -B "$2" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw64.cmake" -DCMAKE_CROSSCOMPILING_EMULATOR="$PWD/cmake/wine-run.sh" \
    -DCMAKE_PREFIX_PATH="$1" -DCMAKE_BUILD_TYPE=RelWithDebInfo "${@:3}" &&
    nice cmake --build "$2" -- --quiet
}
build_sdk_client() { build_client "$PWD/build/sdk" build/sdk-client >build/sdk-client.log 2>&1; }

# ---- What --long and --ci add: one function each, in this order. Wine's servers and displays are up, the builds are done.
long_steps=(faults_and_soak fuzz external_suite archive)
ci_steps=(tidy_changes branches fuzz external_suite archive)

# Every fault, a thousand runs of each dialog, and every pair of characters in a path.
faults_and_soak() {
  say "every fault, and each dialog a thousand times"
  run_tests build/native-asan -C long -R '_long$'
  add_results "faults and pairs, native" build/native-asan
  run_tests build/win64 -C long -R '_long$' --parallel 2 --resource-spec-file "$PWD/cmake/displays.json"
  add_results "faults and soak, windows" build/win64
}

# Each fuzzer, two at a time, from its checked-in inputs; DLGLIB_FUZZ_SECONDS says how long.
fuzz() {
  say "the fuzzers"
  ./build.sh --fuzz || { failed=$((failed + 1)); return; }
  run_tests build/native-fuzz --parallel 2
  add_results "fuzzers" build/native-fuzz
  awk '/^stat::number_of_executed_units/ { sub(/.*\//, "", FILENAME); print "  " FILENAME ": " $2 " inputs" }' \
    build/native-fuzz/fuzz/*.log
}

external_suite() {
  say "a suite with core libraries of its own; two builds of the same; Node.js"
  run_tests build/sdk-client -C long -R 'external_suite|reproducible|node'
  add_results "external suite, builds and Node.js" build/sdk-client
}

# Unpacked far from the tree, in a folder as users have them, and used there: its client is built from it and from the examples and pages
# that it holds.
archive() {
  say "the archive, unpacked elsewhere"
  local folder
  folder=$(mktemp -d)/"図面 と 部品"
  : >build/archive.log
  if ./build.sh --package && python3 -B tests/sdk/check_archive.py build/package "$folder/dlglib" . &&
    build_client "$folder/dlglib" "$folder/client" -DDLGLIB_CLIENT_ARCHIVE=ON >build/archive.log 2>&1; then
    passed=$((passed + 1))
    run_tests "$folder/client"
    add_results "archive" "$folder/client"
  else
    cat build/archive.log
    failed=$((failed + 1))
  fi
  rm -rf "$(dirname "$folder")"
}

# What has changed since the first parent of the last commit, read with clang-tidy.
tidy_changes() {
  say "clang-tidy reads what has changed"
  if ! git rev-parse --quiet --verify HEAD^ >/dev/null; then
    echo "Nothing to compare with: the last commit has no parent here"
    return
  fi
  if git diff --name-only HEAD^ | ./build.sh --tidy -; then passed=$((passed + 1)); else failed=$((failed + 1)); fi
}

branches() {
  say "the branches that the tests take"
  ./build.sh --coverage || { failed=$((failed + 1)); return; }
  run_tests build/native-coverage --parallel 2
  add_results "with counted branches" build/native-coverage
  python3 cmake/coverage.py . build/native-coverage tests/untaken_branches.txt || failed=$((failed + 1))
}

# What the native tests leave out; nothing else is run.
coverage() {
  steps=1
  need_packages "${BUILD_PACKAGES[@]}" "${COVERAGE_PACKAGES[@]}" || exit 1
  branches
  exit $((failed > 0))
}

# Which small changes of the core no native test notices; nothing else is run. Those that the quick build does not notice are tried
# again under the sanitizers.
mutants() {
  steps=1
  need_packages "${BUILD_PACKAGES[@]}" "${MUTANTS_PACKAGES[@]}" || exit 1
  say "small changes of the core"
  ./build.sh --mutants || exit 1
  run_tests build/native-mutants --parallel 2 -L native
  add_results "native" build/native-mutants
  [ "$failed" = 0 ] || exit 1
  ctest --test-dir build/native-asan -R '^host_locales$' >/dev/null  # one of its programs needs it
  python3 -B tests/mutants/unnoticed.py . build/native-mutants tests/unnoticed_mutants.txt "$@" --again build/native-asan ||
    failed=$((failed + 1))
  exit $((failed > 0))
}

more=()
packages=("${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}" "${INPUT_METHOD_PACKAGES[@]}" "${CHECK_PACKAGES[@]}")
case "${1:-}" in
  "") ;;
  --coverage) coverage ;;
  --mutants) shift; mutants "$@" ;;
  --long)
    dpis+=(144 288)
    more=("${long_steps[@]}")
    packages+=("${LONG_PACKAGES[@]}" "${PACKAGE_PACKAGES[@]}")
    ;;
  --ci)
    more=("${ci_steps[@]}")
    packages+=("${LONG_PACKAGES[@]}" "${TIDY_PACKAGES[@]}" "${COVERAGE_PACKAGES[@]}" "${PACKAGE_PACKAGES[@]}" git)
    export DLGLIB_FUZZ_SECONDS=${DLGLIB_FUZZ_SECONDS:-10}
    ;;
  *) sed -n '2,11s/^# \{0,1\}//p' "$0"; exit 2 ;;
esac
steps=$((steps + ${#more[@]}))
need_packages "${packages[@]}" || exit 1
wine_display_try || exit 1

say "building for Windows; the Wine prefix is made beside it"
mkdir -p build
wine_prepare &
preparing=$!
./build.sh --tests windows || { wait "$preparing"; exit 1; }
wait "$preparing" || exit 1

# Windows wait for each other most of the time, compilers never do.
say "the tests with windows; beside them the native half is built and tested, and the SDK's client built"
native_half() {
  rm -f build/native-asan/ctest.xml build/native-tsan/ctest.xml
  nice ./build.sh --tests native && run_tests build/native-asan --parallel 2 &&
    cmake --preset native-tsan >/dev/null && nice cmake --build --preset native-tsan -- --quiet &&
    run_tests build/native-tsan -L threads
}
wine_displays_start "$displays" || exit 1
each_prefix wine_server_start
(wine_use_code_page 1252 && wine_copies "$displays" && each_prefix wine_server_start) || exit 1
for dpi in "${dpis[@]}"; do (wine_use_dpi "$dpi" && wine_copies "$displays") || exit 1; done
set -m
{ native_half; build_sdk_client; } >build/native.log 2>&1 &
native=$!
set +m
run_window_tests
add_results "windows" build/win64

say "what is left of the native half"
wait "$native"
native=
cat build/native.log
add_results "native" build/native-asan
add_results "native, under ThreadSanitizer" build/native-tsan

say "a client of the SDK"
if build_sdk_client; then
  run_tests build/sdk-client
  add_results "sdk client" build/sdk-client
else
  cat build/sdk-client.log
  failed=$((failed + 1))
fi
for each in "${more[@]}"; do "$each"; done
exit $((failed > 0))
