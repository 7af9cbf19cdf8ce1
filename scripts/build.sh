#!/usr/bin/env bash
# Builds the named targets, or everything, with the preset `dev` into build/, or with another preset
# into its own folder. Configures first if that has not been done or the presets have changed.
#
#   scripts/build.sh [--preset NAME] [TARGET...]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

preset=dev
folder=build
if [ "${1-}" = --preset ]; then
  preset=$2
  folder=build-$2
  shift 2
fi
if command -v ccache > /dev/null; then
  export CMAKE_CXX_COMPILER_LAUNCHER=ccache
  export CCACHE_SLOPPINESS=pch_defines,time_macros  # ccache needs this for precompiled headers
fi
if [ ! -f "$folder/build.ninja" ] || [ CMakePresets.json -nt "$folder/CMakeCache.txt" ]; then
  cmake --preset "$preset"
fi
cmake --build --preset "$preset" --parallel "$(nproc)" ${1+--target "$@"}
