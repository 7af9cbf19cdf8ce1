#!/usr/bin/env bash
# Fails if a validator complains about a file in the given folder. A validator that is not installed is
# skipped, and named.
set -euo pipefail
cd "$1"
status=0

# with TOOL FILE...: runs the tool in $check on the files, if it is installed.
with() {
  local tool=$1
  shift
  if ! command -v "${tool%% *}" > /dev/null; then
    echo "${tool%% *} is not installed; not looked at: $*"
  elif ! $tool "$@"; then
    status=1
  fi
}

# groff prints its warnings and still succeeds.
pages() {
  local warnings
  warnings=$(groff -man -ww -z -K utf8 "$@" 2>&1)
  [ -z "$warnings" ] || { echo "$warnings"; return 1; }
}

with "desktop-file-validate" desktop/*.desktop
with "appstreamcli validate --no-net --no-color" desktop/*.metainfo.xml
if command -v groff > /dev/null; then
  pages man/*.in || status=1
fi

# Debian's build needs what ours needs, except for tests and fuzzing.
sed -nE '/the tests,|test:|fuzz:/d; s/^([a-z0-9+.-]+-dev) .*/\1/p' ../scripts/packages.txt |
  while read -r package; do
    grep --quiet "^ ${package}[ ,]" debian/control || { echo "debian/control does not build with $package"; exit 1; }
  done || status=1

# Every file that names the version names the same one: that of the newest dated section of the changelog.
version=$(sed -nE 's/^  VERSION ([0-9.]+)$/\1/p' ../CMakeLists.txt)
agrees() { [ "$2" = "$version" ] || { echo "$1 has version $2, CMakeLists.txt $version"; status=1; }; }
agrees debian/changelog "$(sed -nE '1s/.*\((.*)-1\).*/\1/p' debian/changelog)"
agrees desktop/*.metainfo.xml "$(sed -nE 's/.*<release version="([^"]*)".*/\1/p' desktop/*.metainfo.xml | head -n 1)"
agrees CHANGELOG.md "$(sed -nE 's/^## ([0-9.]+), .*/\1/p' ../CHANGELOG.md | head -n 1)"
exit "$status"
