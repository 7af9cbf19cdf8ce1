#!/usr/bin/env bash
# Fails if clang-format would lay out a source file differently. To mend it: clang-format -i FILE.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
command -v clang-format > /dev/null || { echo "clang-format is not installed: ./test.sh installs it"; exit 77; }

find . -path './build*' -prune -o \( -name '*.h' -o -name '*.cpp' \) -print |
  xargs clang-format --dry-run -Werror
