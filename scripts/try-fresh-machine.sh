#!/usr/bin/env bash
# Tries the README's promise on a machine with nothing installed: in a Debian 12 root with the base
# system and a clone of what is committed here, runs ./run.sh, ./test.sh and .ci/run in turn, and times
# them. Takes 4 GB and the time that docs/fresh-machine.md states, and needs root.
#
#   MIRROR=http://... scripts/try-fresh-machine.sh     (otherwise the mirror that apt uses here)
#
# Stops at the first that fails; their output is in build-fresh/.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
# shellcheck source=scripts/bare-debian.sh
source scripts/bare-debian.sh
logs=$PWD/build-fresh
mkdir -p "$logs"

step "A clone"
git clone --quiet --no-hardlinks . "$root/try/postwright"
git -C "$root/try/postwright" remote remove origin
cp /etc/resolv.conf "$root/etc/resolv.conf"  # the tests look up hosts that do not exist

for command in ./run.sh ./test.sh .ci/run; do
  step "$command"
  log=$logs/$(tr --delete './' <<< "$command").log
  before=$SECONDS
  if ! inside sh -c "cd /try/postwright && $command" > "$log" 2>&1; then
    tail --lines=40 "$log"
    echo "$command failed after $((SECONDS - before)) s; its output is in $log" >&2
    exit 1
  fi
  tail --lines=3 "$log"
  echo "$command took $((SECONDS - before)) s"
done

step "All three kept their promises."
