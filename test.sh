#!/usr/bin/env bash
# Runs every test: installs what is missing, builds, and hands over to ctest.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"

scripts/install-packages.sh --test
scripts/build.sh
exec ctest --preset dev --parallel "$(nproc)"
