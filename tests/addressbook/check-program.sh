#!/usr/bin/env bash
# What the program prints before it has a window, or if it cannot have one: check-program.sh PROGRAM
set -euo pipefail
program=$1
cd "$(dirname "$(readlink -f "$0")")/../.."
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM

# expect STATUS TEXT COMMAND...
expect() {
  local said status=0
  said=$("${@:3}" 2>&1) || status=$?
  if [ "$status" -ne "$1" ] || [[ $said != *"$2"* ]]; then
    echo "${*:3}: expected $1 and '$2', got $status and: $said" >&2
    exit 1
  fi
}

expect 0 "FILE is an address book" "$program" --help
expect 0 "postwright-addressbook 0" "$program" --version
expect 1 "there is no display" "$program" examples/books/friends.csv
expect 2 "--help' says more" "$program" --server nowhere:x
expect 2 "--help' says more" "$program" one.csv two.csv
expect 1 "docs/pictures/" ./run.sh --window
expect 2 "cannot understand: --windows" ./run.sh --windows
