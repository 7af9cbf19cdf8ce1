#!/usr/bin/env bash
# Builds the Debian packages into build-packages/ and has lintian look at them. A copy of the sources
# is built, so nothing else is touched.
#
# Needs, besides what scripts/install-packages.sh installs, the Debian packages debhelper, dh-python,
# doxygen and lintian. It takes some minutes.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

missing=()
for package in debhelper dh-python doxygen lintian; do
  dpkg-query --show --showformat='${db:Status-Status}' "$package" 2> /dev/null | grep --quiet --line-regexp installed ||
    missing+=("$package")
done
if [ "${missing[*]}" ]; then
  echo "These packages are missing: apt-get install ${missing[*]}" >&2
  exit 1
fi

version=$(sed -nE 's/^  VERSION ([0-9.]+)$/\1/p' CMakeLists.txt)
sources=build-packages/postwright-$version
rm -rf build-packages
mkdir -p "$sources"
git ls-files -z | tar --create --null --files-from=- | tar --extract --directory="$sources"
cp --recursive packaging/debian "$sources/debian"
if [ "$(dpkg-parsechangelog --file "$sources/debian/changelog" --show-field Version)" != "$version-1" ]; then
  echo "packaging/debian/changelog does not begin with the version $version-1." >&2
  exit 1
fi

if command -v ccache > /dev/null; then
  export CMAKE_CXX_COMPILER_LAUNCHER=ccache
  CCACHE_DIR=$(ccache --get-config cache_dir)  # the build has a home folder of its own
  export CCACHE_DIR
fi
(cd "$sources" && DEB_BUILD_OPTIONS="parallel=$(nproc)" dpkg-buildpackage --build=binary --no-sign)
rm -rf "$sources"
# No bug is closed by packages that nobody uploads.
lintian --fail-on error,warning --suppress-tags initial-upload-closes-no-bugs build-packages/*.changes
ls -l build-packages/*.deb
