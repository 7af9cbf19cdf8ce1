#!/usr/bin/env bash
# Fails if a library exports what no public header declares, if a public header declares what no
# library exports, or if Debian's symbols files differ from the libraries:
#
#   check-exports.sh PREFIX
set -euo pipefail
export LC_ALL=C.UTF-8
headers=$1/include/postwright
mapfile -t libraries < <(find "$1" -name 'libpostwright*.so')
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# The names after POSTWRIGHT_..._EXPORT, of classes, functions and variables. The name may be on the line
# after; the functions of Utils and TextForm are in namespaces.
cat "$headers"/*.h | sed '/^#/d; s|//.*||' | tr '\n' ' ' |
  grep --extended-regexp --only-matching 'POSTWRIGHT_[A-Z]+_EXPORT [^;({]*[;({]' |
  sed -E 's/^POSTWRIGHT_[A-Z]+_EXPORT *//; s/ *(final *)?(: [^{]*)?[;({]$//; s/.*[ *&]//' |
  sort --unique > "$scratch/declared"

# What the libraries export, each symbol by the name that a header would declare.
nm --dynamic --demangle --defined-only --format=posix "${libraries[@]}" | sed -E '/:$/d; s/ [A-Za-z] [0-9a-f]+( [0-9a-f]+)?$//' |
  sed -E 's/^(typeinfo name for|typeinfo for|vtable for|(non-)?virtual thunk to) //' > "$scratch/offered"
sed -nE 's/^postwright::((Utils|TextForm)::)?(\w+).*/\3/p; s/^(postwright_\w+)$/\1/p' "$scratch/offered" |
  sort --unique > "$scratch/names"

status=0
if grep --invert-match --extended-regexp '^postwright(::|_)' "$scratch/offered"; then
  echo "These symbols are not ours, and are offered: see cmake/exports.map."
  status=1
fi
if ! diff "$scratch/declared" "$scratch/names"; then
  echo "'<': declared for hosts, and offered by no library. '>': offered, and declared by no header."
  status=1
fi
[ -s "$scratch/declared" ] || status=1
"$(dirname "$(readlink -f "$0")")/../../scripts/library-symbols.sh" "$1" || status=1
exit "$status"
