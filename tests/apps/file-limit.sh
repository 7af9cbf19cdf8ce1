#!/usr/bin/env bash
# Under a limit on the size of files (ulimit -f), each program says which file and why; what was there is
# as it was, and nothing is left next to it.
#
#   file-limit.sh PROGRAMS
set -euo pipefail
programs=$1
folder=$(mktemp --directory)
started=()
trap 'kill "${started[@]}" 2> /dev/null || true; rm -rf "$folder"' EXIT
cd "$folder"
export QT_QPA_PLATFORM=offscreen HOME=$folder
unset XDG_DATA_HOME XDG_CONFIG_HOME

# refused TEXT COMMAND...: under the limit the command ends with 2 and says TEXT.
refused() {
  local said status=0
  said=$(ulimit -f 16 && "${@:2}" 2>&1 > /dev/null) || status=$?
  if [ "$status" -ne 2 ] || [[ $said != *"$1"* ]]; then
    echo "${*:2}: expected 2 and '$1', got $status and: $said" >&2
    exit 1
  fi
}

for ((i = 1; i <= 4000; ++i)); do echo "\"$i Main St\\nAustin TX 78701\""; done > labels.jsonl
{
  echo number,street,unit,city,state,zip
  for ((i = 1; i <= 4000; ++i)); do echo "$i,MAIN ST,,AUSTIN,TX,78701"; done
} > rows.csv
mkdir kept
echo old > kept/records
refused "kept/records: File too large" "$programs/postwright" parse --jsonl --output kept/records labels.jsonl
grep --quiet --line-regexp old kept/records
[ "$(ls -A kept)" = records ]

# Standard output that is a file.
status=0
said=$(ulimit -f 16 && "$programs/postwright" parse --jsonl labels.jsonl 2>&1 > records) || status=$?
[ "$status" -eq 2 ] && [[ $said == *"standard output"*"File too large"* ]]

mkdir bases
refused "bases/base.import: disk I/O error: File too large" "$programs/postwright-base" import --source a bases/base rows.csv
[ ! -e bases/base ]
"$programs/postwright-base" import --source a bases/base rows.csv 2> /dev/null  # the same command goes on
[ "$(ls -A bases)" = base ]

# The other two do not depend on writing a file: they go on.
ignores() {
  local ignored=
  for ((tries = 0; tries < 200 && ${#ignored} == 0; ++tries)); do
    sleep 0.05
    ignored=$(sed -n 's/^SigIgn:.*\([0-9a-f]\{8\}\)$/\1/p' "/proc/$1/status")
    (( (0x${ignored:-0} >> 24) & 1 )) || ignored=  # SIGXFSZ is 25
  done
  [ -n "$ignored" ] || { echo "$2 does not ignore SIGXFSZ" >&2; exit 1; }
}
"$programs/postwright-verifyd" --listen 127.0.0.1:0 2> log &
started+=($!)
ignores $! postwright-verifyd
if [ -e "$programs/postwright-addressbook" ]; then
  "$programs/postwright-addressbook" 2> /dev/null &
  started+=($!)
  ignores $! postwright-addressbook
fi
