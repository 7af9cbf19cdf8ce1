#!/usr/bin/env bash
# Hunts with every harness of fuzz/ in turn, under AddressSanitizer and UndefinedBehaviorSanitizer.
#
#   scripts/fuzz-all.sh MINUTES [HARNESS...]   MINUTES for each of them; vcard_fuzzer
#
# Builds them first (clang: scripts/install-packages.sh --fuzz). What the hunts learn is kept in
# .cache/fuzz/HARNESS, for the next to go on from; what breaks a harness in .cache/fuzz/found, with
# the command that shows it again. Prints a line a harness; ends with 1 where something was found.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

minutes=${1-}
if ! [[ $minutes =~ ^[1-9][0-9]*$ ]]; then
  echo "usage: scripts/fuzz-all.sh MINUTES [HARNESS...]" >&2
  exit 2
fi
shift
command -v clang++ > /dev/null || { echo "clang is missing: scripts/install-packages.sh --fuzz" >&2; exit 2; }
harnesses=("$@")
if [ $# -eq 0 ]; then mapfile -t harnesses < <(basename --suffix=.cpp --multiple fuzz/*_fuzzer.cpp); fi

[ -e build-fuzz/build.ninja ] || cmake --preset fuzz > /dev/null
cmake --build --preset fuzz --target "${harnesses[@]}" > /dev/null

most_finds=5  # of a harness in one hunt; the first is mostly found again
kept=.cache/fuzz
mkdir -p "$kept/found"
export QT_QPA_PLATFORM=offscreen
status=0

# Hunts for $2 seconds with the harness $1 and leaves the log in $log. libFuzzer's weighing of inputs
# by how rare their paths are takes half of the time, so every input has the same weight.
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
