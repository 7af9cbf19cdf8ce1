#!/usr/bin/env bash
# The examples in C and in Python correct a label against the real service, and say so where none
# answers.
#
#   fix-label-in-other-languages.sh PROGRAMS LIBRARY EXAMPLES
set -euo pipefail
programs=$1 examples=$3
export POSTWRIGHT_LIBRARY=$2

log=$(mktemp)
"$programs/postwright-verifyd" --listen 127.0.0.1:0 2> "$log" &
service=$!
trap 'kill "$service" 2> /dev/null || true; rm -f "$log"' EXIT
server=
for ((tries = 0; tries < 100 && ${#server} == 0; ++tries)); do
  sleep 0.05
  server=$(sed -n 's/^postwright-verifyd: listening on //p' "$log")
done

label=$examples/labels/12-names-and-notes.txt
expected=$("$programs/postwright" fix --whole-label --server "$server" --keep-punctuation "$label")
for example in "$programs/fix-label" "python3 $examples/python/fix_label.py"; do
  diff <(echo "$expected") <($example "$server" < "$label" 2> /dev/null)
  for bad in "127.0.0.1:1" "no host"; do
    if message=$($example "$bad" < "$label" 2>&1); then
      echo "$example: found an answer at $bad: $message" >&2
      exit 1
    fi
  done
done
