#!/usr/bin/env bash
# Makes a Debian source package of what git tracks, builds the binary packages from it, and checks them
# all with lintian. Everything goes to build-packages/; nothing else is touched.
#
#   scripts/make-packages.sh            source and binary packages
#   scripts/make-packages.sh --source   only the source package, in seconds
#
# Besides what scripts/install-packages.sh installs it needs the Debian packages debhelper, dh-python,
# doxygen, lintian and postgresql-server-dev-15. It takes some minutes.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

missing=()
for package in debhelper dh-python doxygen lintian postgresql-server-dev-15; do
  dpkg-query --show --showformat='${db:Status-Status}' "$package" 2> /dev/null | grep --quiet --line-regexp installed ||
    missing+=("$package")
done
if [ "${missing[*]}" ]; then
  echo "These packages are missing: apt-get install ${missing[*]}" >&2
  exit 1
fi

version=$(sed -nE 's/^  VERSION ([0-9.]+)$/\1/p' CMakeLists.txt)
if [ "$(dpkg-parsechangelog --file packaging/debian/changelog --show-field Version)" != "$version-1" ]; then
  echo "packaging/debian/changelog does not begin with the version $version-1." >&2
  exit 1
fi

# A source package is an archive of the sources and, separate from it, the folder debian/. The same files
# always give the same archive.
sources=postwright-$version
rm -rf build-packages
mkdir build-packages
git ls-files -z |
  tar --create --xz --null --files-from=- --sort=name --owner=0 --group=0 --numeric-owner --transform="s,^,$sources/,S" \
    --mtime="$(dpkg-parsechangelog --file packaging/debian/changelog --show-field Date)" \
    --file="build-packages/postwright_$version.orig.tar.xz"
cp -r packaging/debian build-packages/debian
cd build-packages
tar --extract --file="postwright_$version.orig.tar.xz"
mv debian "$sources"
dpkg-source --build "$sources"
rm -rf "$sources"
lint=("postwright_$version-1.dsc")

if [ "${1-}" != --source ]; then
  if command -v ccache > /dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
    CCACHE_DIR=$(ccache --get-config cache_dir)  # the build has a home folder of its own
    export CCACHE_DIR
  fi
  dpkg-source --extract "${lint[0]}" "$sources"
  (cd "$sources" && DEB_BUILD_OPTIONS="parallel=$(nproc)" dpkg-buildpackage --build=binary --no-sign)
  rm -rf "$sources"
  lint+=(*.changes)
fi
# These packages are not uploaded, so they close no bug in Debian's tracker.
lintian --fail-on error,warning --suppress-tags initial-upload-closes-no-bugs "${lint[@]}"
ls -l ./*.dsc ./*.tar.xz
[ "${1-}" = --source ] || ls -l ./*.deb
