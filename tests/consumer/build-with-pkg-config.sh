#!/usr/bin/env bash
# Builds and runs the example programs with nothing but the compiler and pkg-config:
#
#   build-with-pkg-config.sh PKG_CONFIG_FOLDER COMPILER
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"
export PKG_CONFIG_PATH=$1
compiler=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

build() {
  local flags
  read -ra flags <<< "$(pkg-config --cflags --libs "$2")"
  "$compiler" -std=c++20 -fPIC "$1" -o "$scratch/program" "${flags[@]}" -Wl,-rpath,"$(pkg-config --variable=libdir "$2")"
  QT_QPA_PLATFORM=offscreen "$scratch/program" "${@:3}"
}

if pkg-config --cflags --libs postwright-core | grep --quiet Qt; then
  echo "The core brings Qt along."
  exit 1
fi
build core/label-checker.cpp postwright-core
if [ -e "$PKG_CONFIG_PATH/postwright-local.pc" ]; then
  build local/own-service.cpp postwright-local "$(pkg-config --variable=prefix postwright-local)/share/postwright/us-zips.tsv"
fi
if [ -e "$PKG_CONFIG_PATH/postwright.pc" ]; then
  build window/mailing.cpp postwright
fi
