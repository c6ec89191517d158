#!/usr/bin/env bash
# Formats all C++ files in place; with --check changes nothing and fails when one is not formatted.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

options=(-i)
[[ ${1-} != --check ]] || options=(--dry-run --Werror)
find src apps tools tests bench \( -name '*.cpp' -o -name '*.h' \) -print0 |
  xargs -0 --no-run-if-empty clang-format --style=file "${options[@]}"
