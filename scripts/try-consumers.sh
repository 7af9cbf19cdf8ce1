#!/usr/bin/env bash
# Builds the Qt host of tests/consumer/ from the sources, by add_subdirectory() and by FetchContent, in
# build-consumers/, and runs it. That compiles the client library once more, for a minute and a half on
# one processor, so ./test.sh only configures the two.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

if command -v ccache > /dev/null; then
  export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}
fi
for way in subdirectory fetch; do
  echo "The Qt host, by $way:"
  cmake -S tests/consumer/window -B build-consumers -G Ninja -DPOSTWRIGHT_FROM=$way \
    -DPOSTWRIGHT_SOURCE_FOLDER="$PWD" > /dev/null
  cmake --build build-consumers --parallel "$(nproc)"
  ctest --test-dir build-consumers --output-on-failure --no-tests=error
done
