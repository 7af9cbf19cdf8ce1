#!/usr/bin/env bash
# Tries the packages in build-packages/ (scripts/make-packages.sh) on a bare Debian 12: makes a root with
# debootstrap, installs them, runs what they contain, builds a program against them, purges them, and
# looks for anything left. Takes some minutes and 1 GB, and needs root.
#
#   MIRROR=http://... scripts/try-packages.sh     (otherwise the mirror that apt uses here)
#
# TMPDIR says where the root is made; it is removed at the end.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

mapfile -t packages < <(find build-packages -name '*.deb' ! -name '*-dbgsym_*' | sort)
if [ ${#packages[@]} -eq 0 ]; then
  echo "There are no packages: scripts/make-packages.sh builds them." >&2
  exit 1
fi
# shellcheck source=scripts/bare-debian.sh
source scripts/bare-debian.sh
cp "${packages[@]}" tests/consumer/core/label-checker.cpp examples/books/friends.csv "$root/try"

step "Installing ${#packages[@]} packages"
apt() {
  inside DEBIAN_FRONTEND=noninteractive apt-get --quiet --quiet --yes "$@" > "$root/try/log" 2>&1 ||
    { cat "$root/try/log"; exit 1; }
}
apt install --no-install-recommends "${packages[@]/#build-packages//try}"

step "Running the programs"
# shellcheck disable=SC2016  # the inner shell's variables
inside bash -euc '
  cd /try
  for program in /usr/bin/postwright*; do
    $program --version
    $program --help > /dev/null
  done
  coproc daemon { exec postwright-verifyd --listen 127.0.0.1:0 2>&1; }
  read -r -t 30 -u "${daemon[0]}" line
  printf "jane doe\n12 north main street apartment 4\naustin texas 78701\n" > label.txt
  postwright fix --server "${line##* }" label.txt
  printf "\"12 north main street\\\\naustin texas 78701\"\n" | postwright fix --jsonl --server "${line##* }"
  python3 -c "import postwright; print(postwright.fix(open(\"label.txt\").read()).text)"
  kill "$daemon_PID"
  # A window stays open until it is closed.
  status=0
  QT_QPA_PLATFORM=offscreen timeout 5 postwright-addressbook friends.csv 2> /dev/null || status=$?
  test "$status" -eq 124'

step "Loading the extensions into the databases"
apt install --no-install-recommends sqlite3
parse="SELECT a.street_line FROM postwright_parse('12 n main street, austin tx 78701') a"
inside sqlite3 -cmd '.load /usr/lib/sqlite3/postwright' :memory: "$parse"
inside runuser -u postgres -- pg_virtualenv -v 15 psql --quiet --no-align --tuples-only \
  --command='CREATE EXTENSION postwright' --command="$parse"

step "Building a program against libpostwright-core-dev"
apt install --no-install-recommends g++ pkg-config
# shellcheck disable=SC2016
inside sh -euc '
  cd /try
  g++ -std=c++20 label-checker.cpp -o label-checker $(pkg-config --cflags --libs postwright-core)
  ./label-checker'

step "Purging"
mapfile -t names < <(for package in "${packages[@]}"; do dpkg-deb --field "$package" Package; done)
apt purge "${names[@]}"
inside dpkg --list | awk '/postwright/ { print "still known to dpkg:", $0; left = 1 } END { exit left }'
if inside find / -xdev \( -path /proc -o -path /try \) -prune -o -iname '*postwright*' -print | grep .; then
  echo "These files are left over." >&2
  exit 1
fi
if inside grep postwright /etc/passwd /etc/group; then
  echo "These accounts are left over." >&2
  exit 1
fi

step "Everything was installed, ran, and left nothing."
