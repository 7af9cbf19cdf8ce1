#!/usr/bin/env bash
# The example in C corrects a label against the real service, and says so if none answers.
#
#   fix-label-in-c.sh PROGRAMS EXAMPLES
set -euo pipefail
programs=$1 examples=$2

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
diff <(echo "$expected") <("$programs/fix-label" "$server" < "$label" 2> /dev/null)
for bad in "127.0.0.1:1" "no host"; do
  if message=$("$programs/fix-label" "$bad" < "$label" 2>&1); then
    echo "fix-label: found an answer at $bad: $message" >&2
    exit 1
  fi
done
