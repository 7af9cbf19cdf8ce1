#!/usr/bin/env bash
# Tests that need other systems or minutes, which ./test.sh leaves out: the service's page in Chromium, by
# keys and clicks, light and dark, narrow and wide, without script and by axe-core; the extensions for
# PostgreSQL, in a server of its own, and for SQLite, each with a million rows; the Dask example with four
# worker processes, one of which is killed; workers that share a gateway's budget; an array of jobs under
# Slurm, if run as root. Needs the packages marked "wide:" in packages.txt, and the network for npm.
#
#   scripts/test-wide.sh [PYTEST-OPTION ...]
#   scripts/test-wide.sh -s -k postgresql    one of them, printing its figures
#   POSTWRIGHT_PICTURES=docs/pictures scripts/test-wide.sh -k picture    makes the picture of the page
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
for tool in chromium chromedriver npm /usr/lib/postgresql/15/bin/initdb; do
  command -v "$tool" > /dev/null || { echo "$tool is not installed: scripts/install-packages.sh --wide"; exit 77; }
done
cmake -S . -B build > /dev/null  # PostgreSQL's headers may be new
ninja -C build bin/postwright postwright-verifyd postwright-base postwright-python postwright-postgresql postwright-sqlite
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
npm install --silent --no-audit --no-fund --ignore-scripts --no-package-lock --prefix "$scratch" axe-core
POSTWRIGHT_AXE=$scratch/node_modules/axe-core/axe.min.js POSTWRIGHT_BIN=$PWD/build/bin \
  /usr/bin/python3 -B -m pytest -p no:cacheprovider --quiet "$@" tests/wide
