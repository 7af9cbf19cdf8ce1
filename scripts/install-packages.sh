#!/usr/bin/env bash
# Installs the packages listed in packages.txt that are missing; prints nothing if none is.
#
#   scripts/install-packages.sh          what building and running need
#   scripts/install-packages.sh --test   also what ./test.sh needs
#   scripts/install-packages.sh --fuzz   also what scripts/fuzz-all.sh needs
#   scripts/install-packages.sh --wide   also what scripts/test-wide.sh needs
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")

case ${1-} in
  --test) unwanted='^#|# (fuzz|wide):' ;;
  --fuzz) unwanted='^#|# (test|wide):' ;;
  --wide) unwanted='^#|# (test|fuzz):' ;;
  *) unwanted='^#|# (test|fuzz|wide):' ;;
esac
mapfile -t wanted < <(grep -Ev "$unwanted" "$here/packages.txt" | awk '{ print $1 }' | sort --unique)

if ! command -v apt-get > /dev/null; then
  echo "This system has no apt-get. Install the counterparts of these Debian packages:" >&2
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

apt() { "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get --quiet "$@"; }

# Says what will be fetched; fails if the lists of packages are absent or too old.
announce() {
  local files
  files=$(apt-get install --print-uris --yes --no-install-recommends "${missing[@]}" 2> /dev/null) || return 1
  files=$(grep "^'" <<< "$files") || { echo "Installing ${missing[*]}."; return 0; }  # fetched before
  count=$(wc --lines <<< "$files")
  echo "Installing ${missing[*]}: with what they need $count packages," \
    "$(awk '{ bytes += $3 } END { print int(bytes / 1e6) + 1 }' <<< "$files") MB to fetch."
}

# Reports progress now and then.
progress() {
  local line fetched=0 done=0
  while IFS= read -r line; do
    case $line in
      Get:*) ((++fetched % 40)) || echo "  $fetched of $count fetched" ;;
      "Setting up "*) ((++done % 40)) || echo "  $done of $count set up" ;;
    esac
  done
}

install() { apt install --yes --no-install-recommends "${missing[@]}" > >(progress); }

update() {
  echo "Fetching Debian's lists of packages, some 10 MB."
  apt update > /dev/null
}

count=0
if ! announce; then
  update || true
  announce || true  # if something is wrong, the installation will say what
fi
# The lists may name versions that the mirror has replaced.
if ! install && ! { update && install; }; then
  echo "The packages could not be installed. Can apt-get reach its mirror? By hand:" >&2
  echo "  ${as_root[*]} apt-get update && ${as_root[*]} apt-get install ${missing[*]}" >&2
  exit 1
fi
