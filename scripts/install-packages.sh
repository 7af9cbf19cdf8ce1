#!/usr/bin/env bash
# Installs what is missing of the packages that packages.txt lists; says nothing where nothing is.
#
#   scripts/install-packages.sh          what building and running take
#   scripts/install-packages.sh --test   and what ./test.sh takes besides
#   scripts/install-packages.sh --fuzz   and what scripts/fuzz-all.sh does
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")

case ${1-} in
  --test) unwanted='^#|# fuzz:' ;;
  --fuzz) unwanted='^#|# test:' ;;
  *) unwanted='^#|# (test|fuzz):' ;;
esac
mapfile -t wanted < <(grep -Ev "$unwanted" "$here/packages.txt" | awk '{ print $1 }' | sort --unique)

if ! command -v apt-get > /dev/null; then
  echo "This system has no apt-get: the counterparts of these Debian packages must be there:" >&2
  echo "  ${wanted[*]}" >&2
  exit 0
fi

mapfile -t installed < <(
  dpkg-query --show --showformat='${db:Status-Status} ${Package}\n' "${wanted[@]}" 2> /dev/null |
    awk '$1 == "installed" { print $2 }')
mapfile -t missing < <(
  printf '%s\n' "${wanted[@]}" "${installed[@]}" "${installed[@]}" | sort | uniq --unique)
[ "${missing[*]}" ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo > /dev/null; then
    echo "These packages are missing, and only root can install them (there is no sudo here):" >&2
    echo "  apt-get install ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo)
fi

echo "Installing: ${missing[*]}"
apt() {
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get --quiet --quiet "$@" > /dev/null
}
# The lists may be old or absent; they are fetched anew only where they do not serve.
if ! apt install --yes --no-install-recommends "${missing[@]}" 2> /dev/null; then
  if ! { apt update && apt install --yes --no-install-recommends "${missing[@]}"; }; then
    echo "The packages could not be installed. Is the package registry within reach? By hand:" >&2
    echo "  ${as_root[*]} apt-get update && ${as_root[*]} apt-get install ${missing[*]}" >&2
    exit 1
  fi
fi
