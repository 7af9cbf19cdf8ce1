#!/usr/bin/env bash
# Corrects any number of labels in shards, on one machine or on many that share a folder. After any
# interruption, however hard, the same command goes on where it stopped.
#
#   fix-shards.sh split LABELS FOLDER LINES   cuts a file of JSON lines into shards of LINES lines
#   fix-shards.sh shard FILE [OPTION...]      corrects one shard; OPTIONs are those of `postwright fix`
#   fix-shards.sh work FOLDER [OPTION...]     corrects every shard; as a task of a Slurm array, its own
#   fix-shards.sh join FOLDER                 writes the records of all shards to standard output
#
# On four cores:   ls FOLDER/*.labels | parallel -j 4 fix-shards.sh shard {}
# On a cluster:    sbatch --array=0-99 --wrap='fix-shards.sh work FOLDER --jobs 4'
#
# FOLDER/000007.labels is a shard, 000007.part its records so far, 000007.fixed all of them.
# POSTWRIGHT names the program if it is not on the path.
set -euo pipefail
postwright=${POSTWRIGHT:-postwright}

complain() {
  echo "fix-shards: $*" >&2
  exit 2
}

# The folder appears complete, or not at all.
split_labels() {
  local labels=$1 folder=${2%/} lines=$3
  [ -e "$folder" ] && complain "$folder is there already: go on with 'work', or name another folder"
  rm -rf "$folder.new"
  mkdir -p "$folder.new"
  split --lines="$lines" --numeric-suffixes --suffix-length=6 --additional-suffix=.labels \
    -- "$labels" "$folder.new/"
  mv --no-target-directory "$folder.new" "$folder"
  echo "$(find "$folder" -name '*.labels' | wc --lines) shards in $folder"
}

# Records are added to the part as they come; it takes the shard's name when it is complete.
fix_shard() {
  local labels=$1 status=0
  local name=${labels%.labels}
  shift
  [ -e "$name.fixed" ] && return
  "$postwright" fix --jsonl --quiet "$@" --resume "$name.part" "$labels" || status=$?
  if [ "$status" -eq 75 ]; then
    echo "fix-shards: $labels: the service is away; the same command goes on" >&2
    exit 75
  fi
  # 1: a line was not a label, and a record says so in its place
  [ "$status" -le 1 ] || complain "$labels: stopped with status $status; the same command goes on"
  mv "$name.part" "$name.fixed"
}

fix_folder() {
  local folder=${1%/} index=0 failed=0 status shard
  local task=$((${SLURM_ARRAY_TASK_ID:-0} - ${SLURM_ARRAY_TASK_MIN:-0}))
  local tasks=${SLURM_ARRAY_TASK_COUNT:-1}
  shift
  for shard in "$folder"/*.labels; do
    if ((index++ % tasks == task)); then
      status=0
      (fix_shard "$shard" "$@") || status=$?
      [ "$status" -ne 75 ] || exit 75  # the service would be away for the other shards too
      [ "$status" -eq 0 ] || failed=1  # the other shards go on
    fi
  done
  return "$failed"
}

# Lines are compared before any record is written.
join_records() {
  local folder=${1%/} shard name
  for shard in "$folder"/*.labels; do
    name=${shard%.labels}
    [ -e "$name.fixed" ] || complain "$name.fixed is missing: 'work' goes on with it"
    [ "$(wc --lines < "$shard")" -eq "$(wc --lines < "$name.fixed")" ] ||
      complain "$name.fixed has not a record for each line of $shard: remove it and work again"
  done
  cat "$folder"/*.fixed
}

case ${1-}/$# in
  split/4) split_labels "$2" "$3" "$4" ;;
  shard/[2-9]*) shift && fix_shard "$@" ;;
  work/[2-9]*) shift && fix_folder "$@" ;;
  join/2) join_records "$2" ;;
  *)
    sed -n '2,12s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac
