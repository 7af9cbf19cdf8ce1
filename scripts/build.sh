#!/usr/bin/env bash
# Builds the named targets, or everything, with the preset `dev` into build/. Configures first where
# that has not been done or the presets have changed.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

if command -v ccache > /dev/null; then
  export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
if [ ! -f build/build.ninja ] || [ CMakePresets.json -nt build/CMakeCache.txt ]; then
  cmake --preset dev
fi
cmake --build --preset dev --parallel "$(nproc)" ${1+--target "$@"}
