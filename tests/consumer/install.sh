#!/usr/bin/env bash
# Installs a build into an empty prefix, moves it elsewhere, and tries what is there:
#
#   install.sh BUILD_FOLDER PREFIX
set -euo pipefail
build=$1
prefix=$2
rm -rf "$prefix" "$prefix.made"
cmake --install "$build" --prefix "$prefix.made" > /dev/null
mv "$prefix.made" "$prefix"

for program in "$prefix"/bin/*; do
  name=$(basename "$program")
  "$program" --version | grep --quiet "^$name [0-9]" || { echo "$name does not say its version"; exit 1; }
  ls "$prefix"/share/man/man[18]/"$name".[18] "$prefix/share/bash-completion/completions/$name" > /dev/null
done

# Every library that is loaded is named in the notices.
find "$prefix" -type f \( -perm /u+x -path '*/bin/*' -o -name 'libpostwright*.so.*' \) -exec readelf --dynamic {} + |
  sed -nE 's/.*NEEDED.*\[lib([A-Za-z]+).*/\1/p' | sort --unique |
  while read -r library; do
    case $library in c | m | gcc | stdc | postwright) continue ;; esac
    grep --quiet --ignore-case "$library.*loaded by" "$prefix/share/doc/postwright/NOTICE.md" ||
      { echo "NOTICE.md does not name lib$library"; exit 1; }
  done

# The command answers by itself, without linking a server.
if [ -e "$prefix/bin/postwright" ]; then
  echo '12 north main street, austin texas 78701' |
    XDG_DATA_HOME=$prefix/none "$prefix/bin/postwright" fix | grep --quiet '^12 N MAIN ST$'
  library=$(find "$prefix" -name 'libpostwright-local.so')
  if readelf --dynamic "$library" | grep 'NEEDED.*microhttpd'; then
    exit 1
  fi
fi

# So does the Python package, wherever the tree is.
package=$(find "$prefix/lib" -path '*/postwright/__init__.py')
if [ "$package" ]; then
  XDG_DATA_HOME=$prefix/none PYTHONDONTWRITEBYTECODE=1 PYTHONPATH=${package%/postwright/*} /usr/bin/python3 -c '
import postwright
assert postwright.fix("12 north main street, austin texas 78701").text == "12 N MAIN ST\nAUSTIN TX 78701"'
fi

# The daemon finds its base, and the command finds the daemon.
if [ -e "$prefix/bin/postwright-verifyd" ]; then
  coproc daemon { exec "$prefix/bin/postwright-verifyd" --listen 127.0.0.1:0 2>&1; }
  process=$!
  trap 'kill "$process"' EXIT
  read -r -t 30 -u "${daemon[0]}" line
  server=${line##* }
  printf '12 north main street\naustin texas 78701' |
    no_proxy='*' "$prefix/bin/postwright" fix --server "$server" | grep --quiet '^12 N MAIN ST$'
fi
