#!/usr/bin/env bash
# From a fresh Debian 12 clone to corrected labels: installs what is missing, builds, starts the
# local Verify service, corrects examples/labels/ and stops the service.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"

scripts/install-packages.sh
scripts/build.sh postwright-cli postwright-verifyd

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
echo "A local Verify service answers on $server. The labels, before and after:"
echo
scripts/show-labels.sh "$server" examples/labels/*.txt

cat << 'END'
The service has been stopped. To go on by hand:

  build/bin/postwright-verifyd &                            # 127.0.0.1:8470
  build/bin/postwright fix examples/labels/12-names-and-notes.txt
  build/bin/postwright parse examples/labels/01-house-and-unit.txt
  build/bin/postwright --help
  kill %1                                                   # stops the service

README.md tells of many labels at once; ./test.sh runs the tests.
END
