#!/usr/bin/env bash
# Corrects label files and prints each before and after, side by side if the terminal is wide enough.
#
#   scripts/show-labels.sh HOST:PORT FILE...
set -euo pipefail
export LC_ALL=C.UTF-8  # widths are counted in characters
server=$1
shift
postwright=$(dirname "$(readlink -f "$0")")/../build/bin/postwright

width=80
if [ -t 1 ]; then width=$(stty size < /dev/tty | cut --delimiter=' ' --fields=2); fi
column=$(((width - 8) / 2))

# The letters and digits of an address, for comparing two.
essence() { tr --delete --complement '[:alnum:]' <<< "$1" | tr '[:lower:]' '[:upper:]'; }

side_by_side() {
  local -a before after
  mapfile -t before <<< "$1"
  mapfile -t after <<< "$2"
  local line left right
  for ((line = 0; line < ${#before[@]} || line < ${#after[@]}; ++line)); do
    left=${before[line]-}
    right=${after[line]-}
    printf '  %s%*s  |  %s\n' "$left" $((column - ${#left})) '' "$right"
  done
}

longest() { wc --max-line-length <<< "$1"; }

# Two texts side by side, or one below the other if they are too wide.
both() {
  if [ "$(longest "$1")" -le "$column" ] && [ "$(longest "$2")" -le "$column" ]; then
    side_by_side "$1" "$2"
  else
    sed 's/^/  - /' <<< "$1"
    sed 's/^/  + /' <<< "$2"
  fi
}

fix() { "$postwright" fix --server "$server" "$@"; }

said=$(mktemp)  # a fix's standard error
trap 'rm -f "$said"' EXIT

for file in "$@"; do
  before=$(cat "$file")
  status=0
  after=$(fix "$file" 2> "$said") || status=$?
  printf '%s: ' "$(basename "$file" .txt)"
  if ! "$postwright" parse "$file" > /dev/null 2>&1; then
    echo "holds no address"
    sed 's/^/  /' <<< "$before"
  elif [ "$status" = 3 ]; then
    echo "doubtful, so it stays as it is until you say otherwise (--accept-doubtful)"
    both "$before" "$(fix --accept-doubtful "$file" 2> /dev/null)"
    sed -n '1{s/.* is doubtful[.:] */  Why: /;p}' "$said"
  elif [ "$status" != 0 ]; then
    echo "not corrected"
    sed 's/^/  /' <<< "$before"
    sed 's/^/  Why: /;2,$s/Why:/    /' "$said"
  elif [ -s "$said" ]; then
    echo "left alone"
    sed 's/^/  /' <<< "$before"
    sed 's/^/  Why: /' "$said"
  elif [ "$(essence "$before")" = "$(essence "$after")" ]; then
    echo "already in standard form, apart from case and punctuation"
    both "$before" "$after"
  else
    echo corrected
    both "$before" "$after"
  fi
  echo
done
