#!/usr/bin/env bash
# Computes the sample inventory and writes its reports: a folder each, as the Detail and the Summary report are files of
# the same name, and a PDF each where the build has windows.
#   tools/report.sh PROGRAM REFERENCE CLIENT FOLDER
set -euo pipefail

program=$1 reference=$2 sample=$3 folder=$4
months=Jan,Feb,Mar,Apr,May,Jun,Jul,Aug,Sep,Oct,Nov,Dec
written=()
declare -A told=()
messages=$(mktemp)
trap 'rm -f "$messages"' EXIT

# Passes on what a run has said, but for what an earlier run has said, too: a tank that cannot be computed by months is
# one in every monthly report.
Tell() {
  local line
  while IFS= read -r line; do
    [[ -n ${told["x$line"]-} ]] || printf '%s\n' "$line" >&2
    told["x$line"]=1
  done <"$messages"
}

# Report NAME OPTION...: one run of the program on a copy of the inventory.
Report() {
  local name=$1 pdf=() result=0
  shift
  mkdir -p "$folder/$name"
  cp "$sample" "$folder/$name/client1.mdb"
  if [[ -x ${program%/*}/orvex-pdf ]]; then pdf=(--pdf "$folder/$name.pdf"); fi
  "$program" --client "$folder/$name/client1.mdb" --reference "$reference" --out "$folder/$name" "${pdf[@]}" "$@" \
    2>"$messages" || result=$?
  Tell
  if ((result != 0)); then exit "$result"; fi
  written+=("$folder/$name"/*data.xml)
  if ((${#pdf[@]} > 0)); then written+=("$folder/$name.pdf"); fi
}

# The table of the first run stands for all: the others compute the same losses or parts of them.
Report brief --annual
for kind in summary detail; do Report "$kind" --quiet --annual --kind "$kind"; done
for kind in brief summary detail; do Report "monthly-$kind" --quiet --monthly "$months" --kind "$kind"; done

printf '\nAll reports, each with its display page in the same folder:\n'
printf '  %s\n' "${written[@]}"
