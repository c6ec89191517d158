#!/usr/bin/env bash
# Runs the suite on a build with line coverage and prints, for each folder that must be covered, its table of files.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

folders=(src/store src/emission)
least_percent=95
build=build/coverage

cmake --preset coverage >/dev/null
cmake --build --preset coverage
find "$build" -name '*.gcda' -delete # the counts of earlier runs
ctest --preset coverage --parallel "$(nproc)" --no-tests=error --output-log "$build/ctest.log" >/dev/null 2>&1 ||
  { cat "$build/ctest.log" && exit 1; }
grep 'tests passed' "$build/ctest.log"

gcovr --root . --object-directory "$build" --json "$build/coverage.json" "$build"
result=0
for folder in "${folders[@]}"; do
  printf '\n%s\n' "$folder"
  gcovr --root . --add-tracefile "$build/coverage.json" --filter "$folder/" --fail-under-line "$least_percent" || result=1
done
((result == 0)) || printf '\nless than %d %% of the lines are covered\n' "$least_percent" >&2
exit "$result"
