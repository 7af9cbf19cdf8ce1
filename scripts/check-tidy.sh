#!/usr/bin/env bash
# Checks the product's sources with clang-tidy, as many as the time allows.
#
#   scripts/check-tidy.sh BUILD_FOLDER SECONDS
#
# A source is checked again only when it, a header of ours that it includes, or .clang-tidy has
# changed. The latest changes come first, so that only old ones are left when the time is up; these
# are reported and left for the next run.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
command -v clang-tidy > /dev/null || { echo "clang-tidy is not installed: ./test.sh installs it"; exit 77; }
build=$(realpath --relative-to=. "$1")
deadline=$(($(date +%s) + $2))
stamps=.cache/tidy  # shared by all build folders
mkdir -p "$stamps"
left=$(mktemp)
trap 'rm -f "$left"' EXIT

# A line for each of the product's sources: itself, then the headers of ours that it includes.
sources_with_headers() {
  ninja -C "$build" -t deps | awk -v root="$PWD/" -v build="$PWD/$build/" '
    function flush() { if (line ~ /^(apps|client|common|core|platform|postal|python|service|sql)\//) print line; line = "" }
    /^[^ ]/ { flush(); next }
    {
      sub(/^\.\.\//, root, $1)
      if (index($1, root) == 1 && index($1, build) != 1) {
        line = line (line == "" ? "" : " ") substr($1, length(root) + 1)
      }
    }
    END { flush() }' | sort --unique
}

# The lines of the file $1, the source that changed last in git first.
newest_first() {
  { git log --format= --name-only --max-count=500 2> /dev/null || true; } |
    awk -v list="$1" '
      BEGIN { while ((getline line < list) > 0) { split(line, word, " "); lines[word[1]] = line } }
      $0 in lines { print lines[$0]; delete lines[$0] }
      END { for (source in lines) print lines[source] }'
}

tidy() {
  local stamp report
  stamp=$stamps/$(cat .clang-tidy "$@" | sha256sum | cut --characters=1-40)
  if [ -e "$stamp" ]; then return; fi
  if [ "$(date +%s)" -ge "$deadline" ]; then
    echo "$1" >> "$left"
    return
  fi
  if ! report=$(clang-tidy --quiet -p "$build" "$1" 2>&1); then
    grep --invert-match ' warnings generated.$' <<< "$report"
    return 1
  fi
  touch "$stamp"
}
export -f tidy
export build deadline stamps left

list=$(mktemp)
trap 'rm -f "$left" "$list"' EXIT
sources_with_headers > "$list"
status=0
newest_first "$list" |
  xargs --max-procs="$(nproc)" --max-lines=1 bash -c 'tidy "$@"' tidy || status=1

echo "$(wc --lines < "$list") sources, of which $(wc --lines < "$left") are left for the next run."
exit "$status"
