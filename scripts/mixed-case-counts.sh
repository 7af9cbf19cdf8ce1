#!/bin/sh
# Counts again which spelling of a word is more frequent on labels and how labels come out of mixed
# case, and writes both to docs/mixed-case.md. Builds what it needs. Exit status 1: the dictionary has
# the rarer spelling of some word, which is named.
set -eu
cd "$(dirname "$0")/.."
[ -f build/build.ninja ] || cmake --preset dev
cmake --build --preset dev --target mixed-case-counts
exec build/bin/mixed-case-counts --update data/us-zips.tsv tests/client/data/labels.tsv \
  docs/mixed-case.md
