#!/usr/bin/env bash
# Feeds each reader of files with what libFuzzer makes of the corpus.
#   tools/fuzz.sh SECONDS      how long, for each reader
# What is found new stays in build/fuzz/corpus; an input that ends a reader stands in build/fuzz/found, and belongs into
# tests/fuzz/corpus once the reader is mended.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

seconds=${1:?how many seconds for each reader?}

# Every input is a new file for most readers: a file system in memory takes thirty times as many.
[[ ! -w /dev/shm ]] || export TMPDIR=/dev/shm

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --target fuzzers
mkdir -p build/fuzz/found
for seeds in tests/fuzz/corpus/*/; do
  reader=$(basename "$seeds")
  printf '==> %s: %d seconds\n' "$reader" "$seconds"
  mkdir -p "build/fuzz/corpus/$reader"
  "build/fuzz/tests/fuzz/${reader}_fuzzer" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=1500 -max_len=8192 \
    -print_final_stats=1 -verbosity=0 -artifact_prefix="build/fuzz/found/$reader-" "build/fuzz/corpus/$reader" "$seeds"
done
