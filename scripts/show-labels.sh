#!/usr/bin/env bash
# Corrects label files and prints each before and after, side by side where the terminal is wide
# enough.
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

# What two addresses are compared by: their letters and digits.
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

for file in "$@"; do
  before=$(cat "$file")
  name=$(basename "$file" .txt)
  if ! "$postwright" parse "$file" > /dev/null 2>&1; then
    printf '%s: no address in it\n' "$name"
    sed 's/^/  /' <<< "$before"
  elif ! after=$("$postwright" fix --server "$server" "$file" 2>&1); then
    printf '%s: turned down: %s\n' "$name" "$after"
    sed 's/^/  /' <<< "$before"
  else
    if [ "$(essence "$before")" = "$(essence "$after")" ]; then outcome="already right"; else outcome=corrected; fi
    printf '%s: %s\n' "$name" "$outcome"
    if [ "$(longest "$before")" -le "$column" ] && [ "$(longest "$after")" -le "$column" ]; then
      side_by_side "$before" "$after"
    else
      sed 's/^/  - /' <<< "$before"
      sed 's/^/  + /' <<< "$after"
    fi
  fi
  echo
done
