#!/usr/bin/env bash
# Runs clang-tidy over the program's own code, and shellcheck over the scripts.
#   tools/lint.sh BUILD_FOLDER      a configured build folder with compile_commands.json, best the clang one
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

find src apps tools -name '*.cpp' -print0 |
  xargs -0 --no-run-if-empty --max-args=1 --max-procs="$(nproc)" clang-tidy --quiet -p "$1"
shellcheck tools/*.sh .ci/run
