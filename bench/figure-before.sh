#!/bin/sh
# Prints what the newest file of results/ has for a ratio, as in "(0.2.0: 50.9)"; nothing if it has none.
#
#   bench/figure-before.sh TEXT    the words in front of the ratio
set -eu
newest=$(find "$(dirname "$(readlink -f "$0")")/results" -name '*.txt' | sort --version-sort | tail -n 1)
[ -z "$newest" ] || TEXT=$1 VERSION=$(basename "$newest" .txt) awk '
  BEGIN { text = ENVIRON["TEXT"] }
  index($0, text) == 1 {
    rest = substr($0, length(text) + 1)
    sub(/^[: ]+/, "", rest)
    sub(/ .*/, "", rest)
    print "(" ENVIRON["VERSION"] ": " rest ")"
    exit
  }' "$newest"
