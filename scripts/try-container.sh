#!/usr/bin/env bash
# Builds the container of examples/old-names from the packages in build-packages/ (scripts/make-packages.sh)
# on a Debian 12 of debootstrap's, and asks it as a program does whose host is compiled in: from a second
# container, which shares its network and its hosts. docs/old-clients.md tells the same steps.
#
#   scripts/try-container.sh
#
# Needs root, the Debian packages debootstrap and podman, and the network. What podman is to do otherwise
# on a machine (CONTAINERS_CONF, STORAGE_DRIVER, BUILDAH_ISOLATION) it takes from the environment.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
command -v podman > /dev/null || { echo "podman is not installed: apt-get install podman" >&2; exit 77; }
# shellcheck source=scripts/bare-debian.sh
source scripts/bare-debian.sh
name=postwright-try-$$
remove_containers() {
  podman rm --force --volumes "$name" > /dev/null 2>&1 || true
  podman volume rm --force "$name" > /dev/null 2>&1 || true
  podman rmi --force "$name" "$name-client" "$name-base" > /dev/null 2>&1 || true
  remove_root
}
trap remove_containers EXIT
chmod 755 "$root"  # it is the root of a system for all its users
import() { tar --create --one-file-system --directory "$root" . | podman import --quiet - "$1" > /dev/null; }

import "$name-base"
step "A client, which has curl"
inside apt-get --quiet --quiet update
inside env DEBIAN_FRONTEND=noninteractive apt-get --quiet --quiet --yes install --no-install-recommends curl > "$root/try/log"
import "$name-client"

step "The container"
podman build --quiet --network host --build-arg BASE="localhost/$name-base" --tag "$name" \
  --file examples/old-names/Containerfile . > /dev/null
hosts=()
for host in secure production stg-secure stg-production; do hosts+=(--add-host "$host.shippingapis.com:127.0.0.1"); done
podman run --detach --name "$name" --volume "$name:/certificate" "${hosts[@]}" "$name" > /dev/null
client() { podman run --rm --network "container:$name" --volume "$name:/certificate:ro" "$@"; }

step "Asking it"
# shellcheck disable=SC2016  # variables of the shell inside
client "$name-client" sh -euc '
  curl --silent --output /dev/null --retry 100 --retry-delay 1 --retry-connrefused http://127.0.0.1:8470/
  ls /certificate
  ask() {  # ask WORD OPTION... CALL DOCUMENT: the answer holds the word
    word=$1
    shift
    curl --silent --show-error --get "$@" | grep --quiet "$word" || { echo "$word is not in the answer" >&2; exit 1; }
  }
  zip="<CityStateLookupRequest USERID=\"X\"><ZipCode><Zip5>78701</Zip5></ZipCode></CityStateLookupRequest>"
  verify="<AddressValidateRequest USERID=\"X\"><Address><Address1/><Address2>12 north main street</Address2><City>austin</City><State>TX</State><Zip5>78701</Zip5><Zip4/></Address></AddressValidateRequest>"
  for host in secure production stg-secure stg-production; do
    ask "12 N MAIN ST" --cacert /certificate/old-names.pem "https://$host.shippingapis.com/ShippingAPI.dll" \
      --data API=Verify --data-urlencode "XML=$verify"
  done
  export http_proxy=http://127.0.0.1:8470
  ask AUSTIN http://production.shippingapis.com/ShippingAPI.dll --data API=CityStateLookup --data-urlencode "XML=$zip"
  ! curl --silent https://secure.shippingapis.com/'
podman exec "$name" sh -c 'ls /certificate; kill $(pidof postwright-verifyd)'
[ "$(podman wait "$name")" -eq 1 ] || { echo "It goes on without its service" >&2; exit 1; }
step "Every answer as it should be; without its service the container ends"
