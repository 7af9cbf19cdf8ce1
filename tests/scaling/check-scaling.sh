#!/usr/bin/env bash
# Four times the text may take a reader at most five times the steps: check-scaling.sh [-v] PROGRAM
# [READER...]. Prints those that take more; with -v, all.
set -euo pipefail
all=0
if [ "$1" = -v ]; then
  all=1
  shift
fi
folder=$(mktemp --directory)
trap 'rm -rf "$folder"' EXIT

valgrind --tool=callgrind --collect-atstart=no --dump-line=no --combine-dumps=yes --quiet \
  --callgrind-out-file="$folder/counts" "$@" > "$folder/cases" 2> "$folder/said" || { cat "$folder/said" >&2; exit 1; }

# The file has a part for each case, in order: "desc: Trigger: Client Request: CASE" and "totals: STEPS".
# The first size warms up what is made once.
awk -F'\t' -v all="$all" '
  /^desc: Trigger: Client Request: / {
    sub(/^desc: Trigger: Client Request: /, "")
    reader = $1; shape = $2; size = $3
  }
  /^totals: / && reader != "" {
    steps = substr($0, 9) + 0
    sizes = reader == last_reader && shape == last_shape ? sizes + 1 : 1
    if (sizes == 3) {
      ++cases
      broken = steps > 5 * last_steps
      if (broken || all) {
        printf "%s, %s: %d steps for %d bytes, %d for %d: %.2f times\n", reader, shape, last_steps,
          last_size, steps, size, steps / last_steps
      }
      failed += broken
    }
    last_reader = reader; last_shape = shape; last_steps = steps; last_size = size
    reader = ""
  }
  END {
    printf "%d of %d shapes take more than five times the steps for four times the text\n", failed, cases
    exit failed > 0 || cases == 0
  }' "$folder/counts"
