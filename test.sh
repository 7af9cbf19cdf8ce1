#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test, in three parts:
#
#   address  AddressSanitizer and UndefinedBehaviorSanitizer, on all compiled code
#   threads  ThreadSanitizer, on the tests with threads
#   plain    everything, including the checks of sources, pages and packages
#
#   ./test.sh                          plain
#   ./test.sh address threads plain    these, in this order
#   POSTWRIGHT_TEST_PARTS="threads plain" ./test.sh
#
# Stops at the first part that fails. It leaves out what needs other systems, such as a browser:
# scripts/test-wide.sh runs that.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"

read -ra parts <<< "${*:-${POSTWRIGHT_TEST_PARTS:-plain}}"
for part in "${parts[@]}"; do
  case $part in
    address | threads | plain) ;;
    *)
      sed -n '2,/^set /{ s/^# \{0,1\}//p }' test.sh
      [ "$part" = --help ] && exit 0
      exit 2
      ;;
  esac
done

scripts/install-packages.sh --test
if [ "${parts[*]}" != plain ]; then scripts/install-packages.sh --fuzz; fi  # clang

# Builds a preset and runs its tests.
run() {
  local preset=$1 what=$2 since=$SECONDS
  echo "== $what: building"
  if [ "$preset" = dev ]; then scripts/build.sh; else scripts/build.sh --preset "$preset"; fi
  echo "== $what: built in $((SECONDS - since)) s; testing"
  since=$SECONDS
  ctest --preset "$preset" --parallel "$(nproc)"
  [ "$preset" = dev ] || echo "== $what: tested in $((SECONDS - since)) s"
}

echo "Not run here: scripts/test-wide.sh, the tests that need other systems (Chromium, npm, PostgreSQL, Dask, Slurm)."
for part in "${parts[@]}"; do
  case $part in
    address) run asan "AddressSanitizer and UndefinedBehaviorSanitizer" ;;
    threads) run tsan "ThreadSanitizer" ;;
    plain) run dev "The plain tests" ;;
  esac
done
