#!/usr/bin/env bash
# Makes the README's pictures of the reports: a page of each PDF that tools/report.sh wrote.
#   tools/pictures.sh REPORTS PICTURES
set -euo pipefail

reports=$1 pictures=$2

# PageWith PATTERN PDF: the number of the first page whose text, on one line and with single blanks, has the pattern.
PageWith() {
  pdftotext -layout "$2" - | awk -v RS='\f' -v pattern="$1" '
    { gsub(/[ \n]+/, " ") }
    !found && $0 ~ pattern { found = NR }
    END { if (found) print found; exit !found }'
}

# Picture NAME PATTERN: the page of a report that has the pattern, in so few colours that the file stays small.
Picture() {
  local pdf=$reports/$1.pdf page
  [[ -f $pdf ]] || {
    printf 'pictures: there is no %s; can this build print (orvex-pdf)?\n' "$pdf" >&2
    exit 66
  }
  page=$(PageWith "$2" "$pdf") || {
    printf 'pictures: no page of %s has "%s"\n' "$pdf" "$2" >&2
    exit 1
  }
  pdftoppm -r 80 -f "$page" -l "$page" -singlefile "$pdf" |
    convert - -colors 48 +dither -strip -define png:exclude-chunks=date,time "png8:$pictures/$1.png"
  printf '%s.png: page %s\n' "$1" "$page"
}

mkdir -p "$pictures"
Picture brief 'pounds a year; 25 tanks'
Picture summary 'EF-402 - External Floating Roof Tank'
Picture detail 'Emission calculations'
Picture monthly-brief 'Losses by chemical over all tanks'
Picture monthly-summary 'IF-301 - Internal Floating Roof Tank .*Liquid by month'
Picture monthly-detail 'Emission calculations'
