#!/usr/bin/env bash
# Makes a folder of models: bench/model_folder.sh FOLDER COUNT. Their headers hold three titles, their bodies up to 20 KB.
set -euo pipefail
mkdir -p "$1"
awk -v folder="$1" -v count="$2" 'BEGIN {
  body = sprintf("%512s", ""); gsub(/ /, "x", body)
  for (i = 0; i < count; ++i) {
    name = sprintf("MODEL-%06d.MDL", i)
    file = folder "/" name
    printf "CORVANE MODEL 1\n1=%s\n2=No.%s\n201=comment\nEND\n", name, name > file
    for (part = count > 10000 ? 0 : i % 40; part > 0; --part) printf "%s", body > file
    close(file)
  }
}'
