#!/usr/bin/env bash
# Compares what the libraries in a folder offer with packaging/debian/*.symbols, from which Debian's tools
# work out which version of a library a program needs:
#
#   scripts/library-symbols.sh FOLDER           fails if the two differ
#   scripts/library-symbols.sh --write FOLDER   writes the files; a new symbol gets the version in CMakeLists.txt
#
# FOLDER is build/lib, or a prefix that a build was installed to.
set -euo pipefail
export LC_ALL=C.UTF-8
root=$(dirname "$(readlink -f "$0")")/..
write=
if [ "${1-}" = --write ]; then
  write=yes
  shift
fi
version=$(sed -nE 's/^  VERSION ([0-9.]+)$/\1/p' "$root/CMakeLists.txt")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# symbols LIBRARY FILE PACKAGE: the file as it should be, each symbol with its version from FILE. Virtual
# tables and type information are optional: whether they exist depends on the compiler's options.
symbols() {
  echo "$(readelf --dynamic "$1" | sed -nE 's/.*SONAME.*\[(.*)\]/\1/p') $3 #MINVER#"
  echo "* Build-Depends-Package: ${3%[0-9]}-dev"
  { nm --dynamic --demangle --defined-only --format=posix "$1" |
      sed -E 's/ ([A-Za-z]) [0-9a-f]+( [0-9a-f]+)?$/\t\1/' | sort --unique |
      awk -F '\t' '{
        tags = $1 ~ /::/ ? "c++" : ""
        if ($2 ~ /[VWu]/ || $1 ~ /^(typeinfo|vtable|(non-)?virtual thunk) /) tags = "optional" (tags ? "|" tags : "")
        print " " (tags ? "(" tags ")\"" $1 "@Base\"" : $1 "@Base")
      }' |
      awk -v version="$version" -v file="$2" '
        BEGIN {
          while ((getline line < file) > 0) {
            match(line, / [^ ]*$/)
            since[substr(line, 1, RSTART - 1)] = substr(line, RSTART)
          }
        }
        { print $0 ($0 in since ? since[$0] : " " version) }'
    grep '(optional' "$2" 2> /dev/null || true; } | sort --unique
}

status=0
for name in libpostwright-core libpostwright-local libpostwright; do
  library=$(find "$1" -name "$name.so" -print -quit)
  [ "$library" ] || continue  # not built here
  package=$name$(readelf --dynamic "$library" | sed -nE 's/.*SONAME.*\.so\.([0-9]+)\]/\1/p')
  file=$root/packaging/debian/$package.symbols
  symbols "$library" "$file" "$package" > "$scratch/now"
  if [ "$write" ]; then
    cp "$scratch/now" "$file"
  elif ! diff <(grep --invert-match '(optional' "$file") <(grep --invert-match '(optional' "$scratch/now"); then
    echo "$name and $package.symbols differ: scripts/library-symbols.sh --write build/lib"
    status=1
  fi
done
exit "$status"
