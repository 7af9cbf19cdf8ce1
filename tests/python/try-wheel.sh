#!/usr/bin/env bash
# Makes the wheel from what is built, installs it into a fresh environment without a network, and tries
# the essential calls there.
#
#   try-wheel.sh PYTHON BUILD SOURCES
set -euo pipefail
python=$1 build=$2 sources=$3
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export HOME=$scratch PIP_NO_INDEX=1 PIP_DISABLE_PIP_VERSION_CHECK=1 PYTHONDONTWRITEBYTECODE=1
unset PYTHONPATH

"$python" -m pip wheel --quiet --no-build-isolation --no-deps --config-settings=build-dir="$build" \
  --wheel-dir "$scratch" "$sources"
"$python" -m venv --without-pip --system-site-packages "$scratch/venv"
"$python" -m pip --quiet --python "$scratch/venv/bin/python" install --no-deps "$scratch"/postwright-*.whl

cd "$scratch"
venv/bin/python -c 'import postwright, sys; assert postwright.__file__.startswith(sys.prefix), postwright'
grep -q "$scratch/venv/.*/libpostwright-core" \
  <(venv/bin/python -c 'import postwright; print(open("/proc/self/maps").read())')
export POSTWRIGHT_PROGRAMS=$build/bin
venv/bin/python -m pytest -q -p no:cacheprovider \
  "$sources/tests/python/test_calls.py" -k 'reads or plain or raises or any_str'
venv/bin/python -m pytest -q -p no:cacheprovider "$sources/tests/python/test_many.py" -k order
