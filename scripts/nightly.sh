#!/usr/bin/env bash
# What a night is for: every harness of fuzz/ hunts for 60 seconds, from where the last night ended.
set -euo pipefail
exec "$(dirname "$(readlink -f "$0")")/fuzz-all.sh" 1
