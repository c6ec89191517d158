#!/usr/bin/env bash
# Checks who includes whom, and runs clang-tidy over the code and its tests, and shellcheck over the scripts.
#   tools/lint.sh BUILD_FOLDER      a configured build folder with compile_commands.json, best the clang one
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Each layer may include those in front of it, but for the ones that stand beside each other.
layers=(store shell emission entry refdata reports exchange windows)
beside='entry|refdata|reports|exchange'

CheckIncludes() {
  local i higher result=0
  for i in "${!layers[@]}"; do
    higher=$(IFS='|' && printf '%s' "${layers[*]:i+1}")
    [[ ! ${layers[i]} =~ ^($beside)$ ]] || higher="$higher|$beside"
    [[ -n $higher ]] || continue
    if grep -rnE "#include \"($higher)/" "src/${layers[i]}" | grep -vE "^src/(.*)/[^/]*:[0-9]+:#include \"\1/"; then
      printf 'src/%s includes a layer above or beside it\n' "${layers[i]}" >&2
      result=1
    fi
  done
  if grep -rnE '#include [<"](Q[A-Z]|q[a-z]+\.h)' src apps tools bench tests --exclude-dir=windows --exclude-dir=orvex; then
    printf 'only src/windows and apps/orvex may include Qt\n' >&2
    result=1
  fi
  return "$result"
}

CheckIncludes
find src apps tools bench tests -name '*.cpp' -print0 |
  xargs -0 --no-run-if-empty --max-args=1 --max-procs="$(nproc)" clang-tidy --quiet -p "$1"
shellcheck tools/*.sh .ci/run
