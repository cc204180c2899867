#!/usr/bin/env bash
# Runs one fuzzer, starting from its checked-in inputs, for a minute or for DLGLIB_FUZZ_SECONDS.
#
#   run.sh <program> <target> <folder for what it finds>
#
# Leaves the fuzzer's output in <folder>/<target>.log, new inputs in <folder>/<target>/, and an input that breaks something in
# <folder>/<target>-*.
set -u
program=$1 target=$2 folder=$3
here=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$folder/$target"
options=(-max_total_time="${DLGLIB_FUZZ_SECONDS:-60}" -timeout=10 -rss_limit_mb=1024 -print_final_stats=1 -max_len=1024)
options+=(-artifact_prefix="$folder/$target-")
if [ -f "$here/dictionaries/$target.dict" ]; then options+=(-dict="$here/dictionaries/$target.dict"); fi
"$program" "${options[@]}" "$folder/$target" "$here/corpus/$target" >"$folder/$target.log" 2>&1 && exit 0
cat "$folder/$target.log"
exit 1
