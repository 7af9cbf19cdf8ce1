#!/usr/bin/env bash
# Compares, with libabigail, what the libraries offer to already built programs with what the last
# release offered, as recorded in packaging/abi/VERSION/:
#
#   scripts/check-abi.sh           compares
#   scripts/check-abi.sh --write   records the version in CMakeLists.txt; part of making a release
#
# Builds the libraries into build-abi/, with all debug information. Exit status 0: already built
# programs go on working, or the SONAME has been raised, or nothing has been released yet; 1: they do
# not. An addition is not a difference. Needs abidiff (Debian: abigail-tools).
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
command -v abidiff > /dev/null || { echo "abidiff is not installed: apt-get install abigail-tools" >&2; exit 2; }
version=$(sed -nE 's/^  VERSION ([0-9.]+)$/\1/p' CMakeLists.txt)
mkdir -p packaging/abi
recorded=$(find packaging/abi -mindepth 1 -type d | sort --version-sort | tail -n 1)
if [ "${1-}" != --write ] && [ ! "$recorded" ]; then
  echo "packaging/abi/ has no release to compare with; --write records one."
  exit 0
fi

if command -v ccache > /dev/null; then
  export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
prefix=build-abi/prefix
cmake -S . -B build-abi -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_INSTALL_LIBDIR=lib \
  -DPOSTWRIGHT_BUILD_APPS=OFF -DPOSTWRIGHT_BUILD_PYTHON=OFF -DPOSTWRIGHT_BUILD_TESTS=OFF > /dev/null
cmake --build build-abi --parallel "$(nproc)" --target postwright postwright-local > /dev/null
rm -rf "$prefix"
for component in core core-dev local local-dev client client-dev; do
  cmake --install build-abi --prefix "$prefix" --component "$component" > /dev/null
done
libraries=$(find "$prefix" -name 'libpostwright*.so' | sort)

# record LIBRARY FILE: records what the public headers declare of the library.
record() {
  abidw --exported-interfaces-only --headers-dir "$prefix/include" --drop-private-types --no-corpus-path \
    --no-comp-dir-path --no-show-locs --out-file "$2" "$1"
}

if [ "${1-}" = --write ]; then
  mkdir -p "packaging/abi/$version"
  for library in $libraries; do
    file=packaging/abi/$version/$(basename "$library" .so).abi
    record "$library" "$file"
    xz -9 --force "$file"
  done
  echo "Recorded the libraries in packaging/abi/$version."
  exit 0
fi

status=0
for library in $libraries; do
  name=$(basename "$library" .so)
  [ -f "$recorded/$name.abi.xz" ] || continue  # the release did not have this library
  before=build-abi/before.abi
  xz --decompress --stdout "$recorded/$name.abi.xz" > "$before"
  soname=$(sed -nE "s/.* soname='([^']+)'.*/\1/p" "$before" | head -n 1)
  record "$library" build-abi/now.abi
  echo "$name, $(basename "$recorded") compared with now:"
  if ! grep --quiet --fixed-strings " soname='$soname'" build-abi/now.abi; then
    echo "  The SONAME differs: programs must be built again."
  elif abidiff --no-added-syms "$before" build-abi/now.abi; then
    echo "  Nothing has changed for already built programs."
  else
    echo "  Already built programs would break. Take the change back, or raise"
    echo "  POSTWRIGHT_ABI_VERSION in CMakeLists.txt (docs/compatibility.md)."
    status=1
  fi
done
exit "$status"
