#!/usr/bin/env bash
# Everything that a change must pass, stage by stage; stops at the first stage that fails. `make test` runs it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

jobs=$(nproc)
comma_locale=de_DE.UTF-8
summary=()

# Stage NAME WHAT COMMAND...: tells what it does, does it, and notes how long it took.
Stage() {
  local name=$1 what=$2 started=$SECONDS
  shift 2
  printf '\n==> %s: %s\n' "$name" "$what"
  if "$@"; then
    summary+=("$(printf '%-18s OK     %4d s' "$name" $((SECONDS - started)))")
  else
    summary+=("$(printf '%-18s FAILED %4d s' "$name" $((SECONDS - started)))")
    exit 1
  fi
}

Summarise() {
  printf '\n'
  ((${#summary[@]} == 0)) || printf '%s\n' "${summary[@]}"
  printf '%-18s        %4d s\n' total "$SECONDS"
}
trap Summarise EXIT

Build() { cmake --preset "$1" >/dev/null && cmake --build --preset "$1"; }

# Test PRESET [OPTION OF CTEST...]: prints the tests that fail and ctest's closing lines, not the long list of passes.
Test() {
  local log=build/$1/ctest.log result=0
  ctest --preset "$1" "${@:2}" --parallel "$jobs" --no-tests=error --output-log "$log" >/dev/null 2>&1 || result=$?
  if ((result != 0)); then cat "$log"; fi
  grep -E 'tests passed|tests failed|^Total Test time|No tests were found' "$log"
  return "$result"
}

# The system's own locales stay as they are: this one is made in the build folder.
TestUnderComma() {
  mkdir -p build/locale
  [[ -d build/locale/$comma_locale ]] ||
    localedef -i "${comma_locale%.*}" -f "${comma_locale#*.}" "build/locale/$comma_locale"
  # Numbers are what this is about: the system's own sentences, which some tests compare, stay English.
  LOCPATH="$PWD/build/locale" LC_ALL=$comma_locale LANGUAGE=C ORVEX_TEST_LOCALE=$comma_locale Test "$@"
}

# clang-tidy parses every file with the second compiler, so that a build of all by it would tell nothing new.
Lint() { cmake --preset clang >/dev/null && tools/lint.sh build/clang; }

Stage format "clang-format finds nothing to change" tools/format.sh --check
Stage release "build all optimised, warnings are errors" Build release
Stage tests "run the suite" Test release
Stage comma "run the windows' tests again under $comma_locale, where numbers have a decimal comma" \
  TestUnderComma release --tests-regex '^windows/'
Stage sanitize "build with the second compiler and the address and undefined-behaviour sanitizers" Build sanitize
Stage sanitize-comma "run the suite under them and $comma_locale" TestUnderComma sanitize
Stage lint "clang-tidy, with the second compiler's warnings, and shellcheck find nothing" Lint
