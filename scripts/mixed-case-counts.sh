#!/bin/sh
# Counts again which reading of a word labels use more often and how labels come out of mixed case,
# and keeps both in docs/mixed-case.md. Builds what it needs. Exit status 1: the dictionary takes
# the rarer reading of some word, which is then named.
set -eu
cd "$(dirname "$0")/.."
[ -f build/build.ninja ] || cmake --preset dev
cmake --build --preset dev --target mixed-case-counts
exec build/bin/mixed-case-counts --update data/us-zips.tsv tests/client/data/labels.tsv \
  docs/mixed-case.md
