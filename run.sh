#!/usr/bin/env bash
# From a fresh Debian 12 clone to corrected labels: installs what is missing, builds, starts the
# local Verify service, corrects examples/labels/ and stops the service.
#
#   ./run.sh             shows the labels before and after
#   ./run.sh --window    instead opens the address book on an example of 200 entries; it needs no
#                        service
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"

usage() {
  sed -n '2,/^set/{/^# \?/s///p}' run.sh
}

check_display() {
  [ -z "${DISPLAY-}${WAYLAND_DISPLAY-}" ] || return 0
  cat >&2 << 'END'
There is no display to open a window on: neither DISPLAY nor WAYLAND_DISPLAY is set. Run this in a
desktop session, or through `ssh -X`. docs/pictures/ shows what the windows look like, and
docs/address-book.md and docs/batch-window.md explain what is in them.
END
  exit 1
}

# Starts the service and sets $server to its address.
start_service() {
  log=$(mktemp)
  build/bin/postwright-verifyd --listen 127.0.0.1:0 2> "$log" &
  service=$!
  trap 'kill "$service" 2> /dev/null || true; wait "$service" || true; rm -f "$log"' EXIT

  server=
  for ((tries = 0; tries < 100 && ${#server} == 0; ++tries)); do
    server=$(sed -n 's/^postwright-verifyd: listening on //p' "$log")
    kill -0 "$service" 2> /dev/null || break
    [ "$server" ] || sleep 0.1
  done
  if [ -z "$server" ]; then
    echo "The local Verify service did not start; it said:" >&2
    cat "$log" >&2
    exit 1
  fi
  echo
}

show_labels() {
  scripts/build.sh postwright-cli postwright-verifyd
  start_service
  cat << END
A local Verify service answers on $server. It knows the city of every ZIP code and how an address
is written, but no streets (docs/address-base.md tells how to give it some). The labels, before and
after:

END
  scripts/show-labels.sh "$server" examples/labels/*.txt
  cat << 'END'
The service has been stopped. To go on by hand:

  build/bin/postwright fix examples/labels/12-names-and-notes.txt
  build/bin/postwright parse examples/labels/01-house-and-unit.txt
  build/bin/postwright --help

./run.sh --window shows the address book; README.md tells of many labels at once; ./test.sh runs the
tests.
END
}

open_window() {
  scripts/build.sh postwright-addressbook postwright-base
  book=build/friends.csv
  [ -f "$book" ] || cp examples/books/friends.csv "$book"
  cat << END

The book is $book, a copy of the example: delete it, and the next run begins with a
fresh one.
END
  build/bin/postwright-addressbook "$book"
}

case "$#:${1-}" in
  0:) show=show_labels ;;
  1:--window)
    check_display
    show=open_window
    ;;
  1:-h | 1:--help)
    usage
    exit 0
    ;;
  *)
    { echo "run.sh: cannot understand: $*"; usage; } >&2
    exit 2
    ;;
esac

scripts/install-packages.sh
"$show"
