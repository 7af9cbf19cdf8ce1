#!/usr/bin/env bash
# Corrects labels as an array of jobs under Slurm itself, on one machine: a controller and four node
# daemons, in namespaces of their own that end with this script. While the array runs, a node is killed
# with all that it has started, a task is requeued, a node is drained and the controller is restarted;
# then every record must be there once, in order.
#
#   scripts/try-slurm.sh [LABELS] [POSTWRIGHT]   2,000,000 and build-release/bin/postwright unless given
#
# Needs root and the Debian packages slurm-wlm and munge.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
labels=${1-2000000}
postwright=$(realpath "${2-$here/build-release/bin/postwright}")
tasks=16

if [ "${TRY_SLURM-}" != within ]; then
  [ "$(id -u)" -eq 0 ] || { echo "This needs to be root." >&2; exit 77; }
  for tool in slurmctld slurmd munged sbatch ip unshare; do
    command -v "$tool" > /dev/null || { echo "$tool is not installed: scripts/install-packages.sh --wide" >&2; exit 77; }
  done
  [ -x "$postwright" ] || { echo "There is no $postwright." >&2; exit 2; }
  scratch=$(mktemp --directory)
  trap 'rm -rf "$scratch"' EXIT
  TRY_SLURM=within TRY_SLURM_FOLDER=$scratch \
    unshare --net --uts --mount --pid --fork --kill-child --mount-proc "$0" "$labels" "$postwright"
  exit
fi

trap 'exit 130' INT TERM  # the first process of a namespace has to ask for them
scratch=$TRY_SLURM_FOLDER
export SLURM_CONF=$scratch/slurm.conf
shards=$scratch/shards
hostname try
ip link set lo up
ip address add 10.0.0.1/32 dev lo  # names are resolved where there is an address besides loopback's
cd "$scratch"
echo "10.0.0.1 localhost try" > hosts
mount --bind hosts /etc/hosts

say() { printf '%4d s  %s\n' "$SECONDS" "$*"; }
fail() {
  echo "$*" >&2
  tail -n 5 "$scratch"/*.log "$scratch"/out/* >&2
  exit 1
}

# await SECONDS COMMAND...: until the command succeeds.
await() {
  local end=$((SECONDS + $1))
  shift
  while ! "$@" 2> /dev/null; do
    ((SECONDS < end)) || fail "did not come: $*"
    sleep 0.5
  done
}

# A node's processes are a namespace of processes, so that a kill is as a loss of power to it.
declare -A unshared
start_node() {
  unshare --pid --mount-proc --fork --kill-child slurmd -D -N "$1" > "$1.out" 2>&1 &
  unshared[$1]=$!
}
kill_node() {
  kill -KILL "${unshared[$1]}"
  wait "${unshared[$1]}" 2> /dev/null || true  # it would say that it was killed
}
start_controller() {
  slurmctld -D > ctld.out 2>&1 &
  controller=$!
}
end_controller() {
  kill -TERM "$controller"
  wait "$controller" || true
}

node_is() { [[ $(sinfo --noheader --nodes "$1" --format %T) =~ ^($2)$ ]]; }
is_drained() { scontrol show node "$1" | grep --quiet 'State=IDLE+DRAIN'; }  # of itself, too
responds() { scontrol ping | grep --quiet UP; }
count_records() { { cat "$shards"/*.part "$shards"/*.fixed || true; } 2> /dev/null | wc --lines; }  # one may be missing
has_records() { [ "$(count_records)" -ge "$1" ]; }
running_on() { squeue --noheader --array --nodelist "$1" --states RUNNING --format %i | head -n 1; }
is_busy() { [ -n "$(running_on "$1")" ]; }
began_anew() { scontrol show job "$1" | grep --quiet 'Restarts=[1-9]'; }
is_done() { responds && [ -z "$(squeue --noheader --jobs "$job")" ]; }

dd if=/dev/urandom of=munge.key bs=128 count=1 status=none
chmod 600 munge.key
chmod 711 .  # which munge insists on for its socket
munged --force --key-file munge.key --socket "$scratch/munge.socket" --pid-file "$scratch/munged.pid" \
  --log-file "$scratch/munged.log" --seed-file "$scratch/munged.seed"

cat > "$SLURM_CONF" << END
ClusterName=try
SlurmctldHost=try
SlurmUser=root
AuthType=auth/munge
AuthInfo=socket=$scratch/munge.socket,cred_expire=20
CredType=cred/munge
StateSaveLocation=$scratch/state
SlurmdSpoolDir=$scratch/spool-%n
SlurmctldPidFile=$scratch/ctld.pid
SlurmdPidFile=$scratch/%n.pid
SlurmctldLogFile=$scratch/ctld.log
SlurmdLogFile=$scratch/%n.log
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
MpiDefault=none
SwitchType=switch/none
MailProg=/bin/true
ReturnToService=2
SlurmdTimeout=10
KillWait=5
SlurmdParameters=config_overrides
SelectType=select/cons_tres
SelectTypeParameters=CR_Core
NodeName=node[1-4] NodeHostname=try Port=[17001-17004] CPUs=1
PartitionName=all Nodes=ALL Default=YES
END
mkdir state out

start_controller
for node in node1 node2 node3 node4; do start_node "$node"; done
for node in node1 node2 node3 node4; do await 60 node_is "$node" idle; done
say "Slurm $(slurmctld -V | awk '{ print $2 }'), four nodes"

seq "$labels" | sed 's/.*/{"id":&,"address":"Jane Doe\\n& north main street apt 4\\naustin tx 78701"}/' > labels.jsonl
"$here/examples/shards/fix-shards.sh" split labels.jsonl "$shards" $((labels / 200 + 1)) > split.out
job=$(POSTWRIGHT=$postwright sbatch --parsable --array=0-$((tasks - 1)) --requeue --output out/%a \
  --wrap "$here/examples/shards/fix-shards.sh work $shards")
began=$SECONDS
say "$labels labels in $(find "$shards" -name '*.labels' | wc --lines) shards, an array of $tasks tasks"

await 600 has_records $((labels / 10))
await 60 is_busy node2
killed=$(running_on node2)
kill_node node2
say "node2 is killed, with task ${killed#*_}; $(count_records) records are there"
await 60 is_busy node1
requeued=$(running_on node1)
scontrol requeue "$requeued"
say "task ${requeued#*_} is requeued"
scontrol update NodeName=node3 State=DRAIN Reason=try
say "node3 is $(sinfo --noheader --nodes node3 --format %T)"
await 60 node_is node2 'down[*]'
start_node node2
await 60 node_is node2 'idle|allocated|mixed'
say "node2 was missed, and is there again"

await 900 has_records $((labels / 2))
end_controller
away=$(count_records)
sleep 3
say "the controller is away, the tasks go on: $away records, 3 s later $(count_records)"
start_controller
await 60 responds
await 900 is_drained node3
say "the controller is there again; node3 is drained, and has no task"
scontrol update NodeName=node3 State=RESUME
for each in "$killed" "$requeued"; do await 300 began_anew "$each"; done
await 3600 is_done
say "the array is done, after $((SECONDS - began)) s"

"$here/examples/shards/fix-shards.sh" join "$shards" > records.jsonl || fail "shards are missing"
sed -E 's/^\{"id":([0-9]+),.*/\1/' records.jsonl | cmp - <(seq "$labels") || fail "records are missing, twice or out of order"
[ "$(grep --count '"status":1}' records.jsonl)" -eq "$labels" ] || fail "not every label was corrected"
say "every record once, in order: $labels"
