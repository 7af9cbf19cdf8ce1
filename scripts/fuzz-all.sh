#!/usr/bin/env bash
# Runs every fuzzer of fuzz/ in turn, under AddressSanitizer and UndefinedBehaviorSanitizer.
#
#   scripts/fuzz-all.sh MINUTES [FUZZER...]   MINUTES for each; a FUZZER is named as in vcard_fuzzer
#
# Builds them first (clang: scripts/install-packages.sh --fuzz). The inputs that a run finds useful are
# kept in .cache/fuzz/FUZZER for the next one; inputs that break a fuzzer go to .cache/fuzz/found, and the
# command that shows the fault again is printed. Prints a line a fuzzer; the exit status is 1 if
# something was found.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

minutes=${1-}
if ! [[ $minutes =~ ^[1-9][0-9]*$ ]]; then
  echo "usage: scripts/fuzz-all.sh MINUTES [FUZZER...]" >&2
  exit 2
fi
shift
command -v clang++ > /dev/null || { echo "clang is missing: scripts/install-packages.sh --fuzz" >&2; exit 2; }
harnesses=("$@")
if [ $# -eq 0 ]; then mapfile -t harnesses < <(basename --suffix=.cpp --multiple fuzz/*_fuzzer.cpp); fi

[ -e build-fuzz/build.ninja ] || cmake --preset fuzz > /dev/null
cmake --build --preset fuzz --target "${harnesses[@]}" > /dev/null

most_finds=5  # of a fuzzer in one run; mostly they are the first one again
kept=.cache/fuzz
mkdir -p "$kept/found"
export QT_QPA_PLATFORM=offscreen
status=0

# Runs the fuzzer $1 for $2 seconds and leaves the log in $log. libFuzzer can weigh inputs by how rare
# their paths are, which takes half of the time, so here every input has the same weight.
hunt() {
  local name=${1%_fuzzer} dictionary=()
  if [ -e "fuzz/dictionary/$name.dict" ]; then dictionary=("-dict=fuzz/dictionary/$name.dict"); fi
  mkdir -p "$kept/$1"
  "build-fuzz/bin/$1" "$kept/$1" "fuzz/corpus/$name" "${dictionary[@]}" -max_total_time="$2" \
    -max_len=4096 -timeout=20 -rss_limit_mb=2048 -entropic=0 -print_final_stats=1 -verbosity=0 \
    -artifact_prefix="$kept/found/$1-" > "$log" 2>&1
}

log=$(mktemp)
trap 'rm -f "$log"' EXIT
for harness in "${harnesses[@]}"; do
  end=$(($(date +%s) + 60 * minutes))
  executions=0
  finds=()
  while left=$((end - $(date +%s))) && [ "$left" -gt 0 ] && [ ${#finds[@]} -lt "$most_finds" ]; do
    broken=false
    hunt "$harness" "$left" || broken=true
    ran=$(awk '/^stat::number_of_executed_units/ { print $2 }' "$log")
    executions=$((executions + ${ran:-0}))
    $broken || continue
    find=$(sed -nE 's/.*Test unit written to (.*)/\1/p' "$log" | tail -n 1)
    finds+=("${find:-$harness did not start}")
    grep -E '^broken: |ERROR: |runtime error: ' "$log" | head -n 1 || tail -n 3 "$log"
  done
  total=$((executions + $(cat "$kept/$harness.executions" 2> /dev/null || echo 0)))
  echo "$total" > "$kept/$harness.executions"
  echo "$harness: $executions executions, $total in all; ${#finds[@]} finds"
  for find in "${finds[@]}"; do
    status=1
    echo "  kept: build-fuzz/bin/$harness $find"
  done
done
exit "$status"
