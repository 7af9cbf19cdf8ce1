#!/usr/bin/env bash
# Fails if an installed program or library lacks hardening (cmake/PostwrightTargets.cmake):
#
#   check-hardened.sh PREFIX
set -euo pipefail
export LC_ALL=C.UTF-8
status=0
files=0

# lacks FILE WHAT: reports it and goes on.
lacks() {
  echo "$(basename "$1") lacks $2"
  status=1
}

while read -r file; do
  files=$((files + 1))
  headers=$(readelf --wide --file-header --program-headers --dynamic "$file")
  symbols=$(readelf --wide --dyn-syms "$file")
  code=$(objdump --disassemble --no-show-raw-insn "$file" | grep --count endbr64 || true)
  grep --quiet 'Type: *DYN' <<< "$headers" || lacks "$file" "a place of its own at each start (-fPIE, -fPIC)"
  grep --quiet 'GNU_RELRO' <<< "$headers" || lacks "$file" "tables that are read-only (-z relro)"
  grep --quiet 'BIND_NOW' <<< "$headers" || lacks "$file" "names bound at the start (-z now)"
  grep --quiet 'GNU_STACK.* RWE' <<< "$headers" && lacks "$file" "a stack that is not executed"
  grep --quiet '__stack_chk_fail' <<< "$symbols" || lacks "$file" "guards on the stack (-fstack-protector-strong)"
  grep --quiet '__[a-z]*_chk@' <<< "$(grep --invert-match stack_chk <<< "$symbols")" && fortified=yes
  # Compilers mark where a jump may land at every function that is reached by a pointer.
  case $(uname --machine) in x86_64) [ "$code" -gt 20 ] || lacks "$file" "marks for jumps (-fcf-protection)" ;; esac
done < <(find "$1" -type f \( -path '*/bin/*' -o -name 'libpostwright*.so.*' \))

[ "$files" -gt 3 ] || { echo "Only $files files were found"; status=1; }
[ -n "${fortified-}" ] || { echo "No file asks the C library to check bounds (_FORTIFY_SOURCE)"; status=1; }
exit "$status"
