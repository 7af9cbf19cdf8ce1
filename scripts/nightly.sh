#!/usr/bin/env bash
# For every night: runs each fuzzer of fuzz/ for 60 seconds, going on from the last night.
set -euo pipefail
exec "$(dirname "$(readlink -f "$0")")/fuzz-all.sh" 1
