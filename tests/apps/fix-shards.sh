#!/usr/bin/env bash
# Four workers that correct shards are killed in the middle, and the tasks of an array go on: every record
# is there once, in the order of the labels.
#
#   fix-shards.sh PROGRAMS SCRIPT
set -euo pipefail
export POSTWRIGHT=$1/postwright
script=$2
folder=$(mktemp --directory)
service=
trap 'kill "$service" 2> /dev/null || true; rm -rf "$folder"' EXIT
cd "$folder"

"${POSTWRIGHT}-verifyd" --listen 127.0.0.1:0 2> log &
service=$!
server=
for ((tries = 0; tries < 100 && ${#server} == 0; ++tries)); do
  sleep 0.05
  server=$(sed -n 's/^postwright-verifyd: listening on //p' log)
done

for ((i = 0; i < 1200; ++i)); do
  echo "{\"id\":$i,\"address\":\"$i main street\\naustin tx 78701\"}"
done > labels.jsonl
sed --in-place 's/^{"id":777,.*/{"id":777}/' labels.jsonl  # not a label
"$script" split labels.jsonl shards 75
if "$script" join shards 2> complaint; then
  echo "joined what is not there" >&2
  exit 1
fi
grep --quiet 'shards/000000.fixed is missing' complaint

export server script
# shellcheck disable=SC2016
setsid xargs --max-procs=4 --replace "$script" shard {} --server "$server" \
  < <(printf '%s\n' shards/*.labels) 2> killed &
workers=$!
while [ "$(cat shards/*.part shards/*.fixed 2> /dev/null | wc --lines)" -lt 150 ]; do
  kill -0 "$workers" || { cat killed >&2; exit 1; }
  sleep 0.02
done
kill -KILL -- "-$workers"
wait "$workers" || true
# A killed process lets go of its files when it is gone, which takes a while on a busy machine.
for ((tries = 0; tries < 500; ++tries)); do
  kill -0 -- "-$workers" 2> /dev/null || break
  sleep 0.02
done
[ "$(find shards -name '*.fixed' | wc --lines)" -lt 16 ]

for task in 1 2 3 4; do
  SLURM_ARRAY_TASK_ID=$task SLURM_ARRAY_TASK_MIN=1 SLURM_ARRAY_TASK_COUNT=4 \
    "$script" work shards --server "$server" 2> "task$task" &
done
wait -n && wait -n && wait -n && wait -n

"$script" join shards > records.jsonl
diff <(seq 0 1199 | grep --invert-match --line-regexp 777) \
  <(sed -n 's/^{"id":\([0-9]*\),.*"status":[01]}$/\1/p' records.jsonl)
[ "$(wc --lines < records.jsonl)" -eq 1200 ]
