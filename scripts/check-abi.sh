#!/usr/bin/env bash
# Compares what programs that are built already need of the libraries with the last version's, by
# libabigail:
#
#   scripts/check-abi.sh          with the last tag
#   scripts/check-abi.sh COMMIT   with any commit
#
# Both are built into build-abi/. Exit status 0: such programs go on working, or the SONAME has been
# raised; 1: they do not. What has been added is no difference. Needs abidiff (Debian:
# abigail-tools).
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
command -v abidiff > /dev/null || { echo "abidiff is not installed: apt-get install abigail-tools" >&2; exit 2; }

if ! earlier=${1:-$(git describe --tags --abbrev=0 2> /dev/null)}; then
  echo "There is no tag, so there is no earlier version to compare with. To compare with a commit:"
  echo "scripts/check-abi.sh COMMIT"
  exit 0
fi
git rev-parse --quiet --verify "$earlier^{commit}" > /dev/null || { echo "There is no commit '$earlier'." >&2; exit 2; }

# library_build SOURCES BUILD: leaves the libraries and their headers in BUILD/prefix.
library_build() {
  local component
  cmake -S "$1" -B "$2" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_INSTALL_LIBDIR=lib \
    -DPOSTWRIGHT_BUILD_APPS=OFF -DPOSTWRIGHT_BUILD_SERVICE=OFF -DPOSTWRIGHT_BUILD_TESTS=OFF > /dev/null
  cmake --build "$2" --parallel "$(nproc)" --target postwright > /dev/null
  rm -rf "$2/prefix"
  for component in core core-dev client client-dev; do
    cmake --install "$2" --prefix "$2/prefix" --component "$component" > /dev/null
  done
}

if command -v ccache > /dev/null; then
  export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
rm -rf build-abi/sources
git worktree prune
git worktree add --quiet --detach build-abi/sources "$earlier"
trap 'git worktree remove --force build-abi/sources' EXIT
library_build build-abi/sources build-abi/earlier
library_build . build-abi/now

status=0
for library in libpostwright-core libpostwright; do
  before=$(readlink -f "build-abi/earlier/prefix/lib/$library.so")
  after=$(readlink -f "build-abi/now/prefix/lib/$library.so")
  echo "$library, $earlier and now:"
  if [ "$(readlink "build-abi/earlier/prefix/lib/$library.so")" != "$(readlink "build-abi/now/prefix/lib/$library.so")" ]; then
    echo "  The SONAME differs: programs are to be built anew."
  elif abidiff --no-added-syms --headers-dir1 build-abi/earlier/prefix/include \
    --headers-dir2 build-abi/now/prefix/include "$before" "$after"; then
    echo "  Nothing has changed for programs that are built already."
  else
    echo "  Programs that are built already would break. Take the change back, or raise"
    echo "  POSTWRIGHT_ABI_VERSION in CMakeLists.txt (docs/compatibility.md)."
    status=1
  fi
done
exit "$status"
