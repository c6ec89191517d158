#!/usr/bin/env bash
# Makes the help file from the pages in data/help: compressed Qt help, with contents, index and search.
#   tools/make_help.sh CMARK QHELPGENERATOR PAGES WORK OUTPUT
# PAGES is the folder of the sources, WORK a folder for what stands between them and the file OUTPUT.
#
# A page is Markdown with tables, and three things of its own:
#   $K_E$                      a formula within a line: names with an index, exponents behind a caret
#   ```math                    equations, one a line, in the same notation
#   <!-- index: Word; Word --> words under which the index leads to the heading above
set -euo pipefail
# Sorts and matches bytes, whatever the person's language is.
export LC_ALL=C

cmark=$1 qhelpgenerator=$2 pages=$3 work=$4 output=$5

Fail() {
  printf 'make_help: %s\n' "$*" >&2
  exit 1
}

# Formulas, on lines of their own while they are converted. The letters of quantities are slanted; the bounds of a single
# letter are shared with its neighbour, so that each other letter is met by the second turn.
Formulas() {
  local letter='s/(^@M |[ ({])([A-Za-z])([ ),^}]|$)/\1<i>\2<\/i>\3/g'
  # shellcheck disable=SC2016 # the dollar signs are those of the page
  sed -E 's/\$([^$]+)\$/\n@M \1\n@E/g' |
    sed -E '/^@M / {
      '"$letter; $letter"'
      s/P∗/<i>P∗<\/i>/g
      s/\^\{([^}]*)\}/<sup>\1<\/sup>/g
      s/\^([a-z])([^a-z]|$)/<sup><i>\1<\/i><\/sup>\2/g
      s/\^([0-9.]+)/<sup>\1<\/sup>/g
      s/([^][ ()\/,<>=+]+)_([A-Za-z0-9]+)/<i>\1<\/i><sub>\2<\/sub>/g
    }' |
    sed -z 's/\n@M //g; s/\n@E//g'
}

# The body of a page: headings get names to link to, links go to the made pages, equations become paragraphs.
Body() {
  "$cmark" --unsafe --extension table "$1" |
    awk '
      /<pre><code class="language-math">/ { equations = 1; sub(/<pre><code class="language-math">/, "") }
      equations && /<\/code><\/pre>/ { equations = 0; next }
      equations { print "<p class=\"equation\">$" $0 "$</p>"; next }
      /^<h2>/ {
        name = $0
        gsub(/<[^>]*>/, "", name)
        name = tolower(name)
        gsub(/[^a-z0-9]+/, "-", name)
        gsub(/^-|-$/, "", name)
        sub(/<h2>/, "<h2><a name=\"" name "\"></a>")
      }
      { print }' |
    sed -E 's/href="([a-z0-9_]+)\.md/href="\1.html/g' | Formulas
}

Title() { sed -n 's/^# //p' "$1" | head -n 1; }

Page() {
  printf '<!DOCTYPE html>\n<html lang="en"><head><meta charset="utf-8"><title>%s</title>\n' "$2"
  printf '<link rel="stylesheet" type="text/css" href="help.css"></head><body>\n'
  Body "$1"
  printf '</body></html>\n'
}

# The sections of a page's own headings.
Headings() {
  sed -nE 's/^<h2><a name="([^"]*)"><\/a>(.*)<\/h2>$/\1\t\2/p' "$work/$1.html" |
    while IFS=$'\t' read -r name text; do
      printf '<section title="%s" ref="%s.html#%s"/>\n' "$(sed -E 's/<[^>]*>//g; s/"/\&quot;/g' <<<"$text")" "$1" "$name"
    done
}

# The contents: a page that is indented stands below the page before it.
Contents() {
  local line topic below=0 open=0
  printf '<section title="%s" ref="index.html">\n' "$(Title "$pages/index.md")"
  while IFS= read -r line; do
    topic=${line#"${line%%[![:space:]]*}"}
    [[ $topic != index && -n $topic && $topic != \#* ]] || continue
    [[ $line == " "* ]] && below=1 || below=0
    # The page before this one ends, unless this one stands below it; its group ends with the indentation.
    if ((below == 0 && open > 0)); then
      printf '</section>\n'
      ((open == 1)) || printf '</section>\n'
      open=0
    elif ((below == 1 && open == 2)); then
      printf '</section>\n'
      open=1
    fi
    printf '<section title="%s" ref="%s.html">\n' "$(Title "$pages/$topic.md")" "$topic"
    Headings "$topic"
    open=$((below + 1))
  done <"$pages/contents.txt"
  for ((; open > 0; --open)); do printf '</section>\n'; done
  printf '</section>\n'
}

Keywords() {
  local topic
  for topic in "${topics[@]}"; do
    awk -v page="$topic.html" -v title="$(Title "$pages/$topic.md")" '
      /^<h2><a name="/ { heading = $0; sub(/^<h2><a name="/, "", heading); sub(/".*/, "", heading) }
      /^<!-- index: .* -->$/ {
        sub(/^<!-- index: /, ""); sub(/ -->$/, "")
        gsub(/&/, "\\&amp;"); gsub(/"/, "\\&quot;")
        count = split($0, words, /; */)
        for (i = 1; i <= count; ++i)
          if (tolower(words[i]) != tolower(title)) printf "<keyword name=\"%s\" ref=\"%s%s\"/>\n", words[i], page, heading == "" ? "" : "#" heading
      }' "$work/$topic.html"
    # By its identification a window finds its page.
    printf '<keyword name="%s" id="%s" ref="%s.html"/>\n' "$(Title "$pages/$topic.md")" "$topic" "$topic"
  done
}

Project() {
  printf '<?xml version="1.0" encoding="UTF-8"?>\n<QtHelpProject version="1.0">\n'
  printf '<namespace>orvex.help</namespace>\n<virtualFolder>help</virtualFolder>\n'
  printf '<filterSection>\n<toc>\n'
  Contents
  printf '</toc>\n<keywords>\n'
  Keywords
  printf '</keywords>\n<files>\n'
  (cd "$work" && find . -type f \( -name '*.html' -o -name '*.css' -o -name '*.png' \) | sort |
    sed -E 's/^\.\/(.*)$/<file>\1<\/file>/')
  printf '</files>\n</filterSection>\n</QtHelpProject>\n'
}

mapfile -t topics < <(sed -E 's/^ +//; /^(#.*)?$/d' "$pages/contents.txt")
[[ ${topics[0]-} == index ]] || Fail "the first page of contents.txt must be the index"
for page in "$pages"/*.md; do
  topic=$(basename "$page" .md)
  [[ " ${topics[*]} " == *" $topic "* ]] || Fail "contents.txt does not name the page $topic"
done

rm -rf "$work"
mkdir -p "$work" "$(dirname "$output")"
cp -r "$pages/help.css" "$pages/pictures" "$work"
for topic in "${topics[@]}"; do
  [[ -f $pages/$topic.md ]] || Fail "contents.txt names a page $topic that is not there"
  Page "$pages/$topic.md" "$(Title "$pages/$topic.md")" >"$work/$topic.html"
done
Project >"$work/orvex.qhp"
# A word of the index leads to one place.
doubles=$(sed -nE 's/^<keyword name="([^"]*)".*/\1/p' "$work/orvex.qhp" | tr '[:upper:]' '[:lower:]' | sort | uniq -d)
[[ -z $doubles ]] || Fail "these words stand in the index twice: ${doubles//$'\n'/, }"

# It says with warnings, not with its exit status, what is missing.
messages=$(QT_QPA_PLATFORM=offscreen "$qhelpgenerator" "$work/orvex.qhp" -o "$work/orvex.qch" 2>&1) || Fail "$messages"
if grep -qi 'warning\|error\|not exist\|cannot' <<<"$messages"; then Fail "$messages"; fi
mv -f "$work/orvex.qch" "$output"
