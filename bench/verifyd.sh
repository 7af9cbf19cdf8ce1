#!/usr/bin/env bash
# Compares the Verify service with nginx serving one file the size of an answer, through the same client:
# requests a second, latencies, and the service's memory over many requests. Neither logs requests.
#
#   bench/verifyd.sh [--base FILE]... [--ask FILE] [--rounds N] [--seconds N] [--millions N]
#
# --ask names a file of addresses to ask for, one a line: delivery line, city, state and ZIP, separated by
# tabs. Without it, a house on a main street in a thousand cities of data/us-zips.tsv. Needs wrk, nginx and
# a release build. Other work on the machine slows both, but not always equally: look at several rounds.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
base=()
ask=
rounds=5
seconds=5
millions=1
while [ $# -gt 0 ]; do
  case $1 in
    --base) base+=(--base "$2") ;;
    --ask) ask=$2 ;;
    --rounds) rounds=$2 ;;
    --seconds) seconds=$2 ;;
    --millions) millions=$2 ;;
    *) sed -n '2,/^set/s/^# \{0,1\}//p' "$0"; exit 2 ;;
  esac
  shift 2
done
verifyd=build-release/bin/postwright-verifyd
[ -x "$verifyd" ] || { echo "build it: cmake --preset release && cmake --build --preset release"; exit 1; }
for tool in wrk nginx curl; do
  command -v "$tool" > /dev/null || { echo "install it: apt-get install wrk nginx-light curl"; exit 1; }
done
scratch=$(mktemp -d)
pids=()
stop() {
  kill "${pids[@]}" 2> /dev/null || true  # not -KILL: nginx would leave its workers running
  wait 2> /dev/null
  rm -rf "$scratch"
}
trap stop EXIT

# A query a line, escaped as a client escapes it.
queries() {
  awk -F '\t' '
    function element(name, text) { return "%3C" name "%3E" text "%3C/" name "%3E" }
    {
      gsub("&", "%26amp;"); gsub(" ", "+"); gsub("#", "%23")
      print "%3CAddressValidateRequest+USERID=%221%22%3E%3CRevision%3E1%3C/Revision%3E%3CAddress+ID=%220%22%3E" \
        element("Address1", "") element("Address2", $1) element("City", $2) element("State", $3) \
        element("Zip5", $4) element("Zip4", "") "%3C/Address%3E%3C/AddressValidateRequest%3E"
    }' "$@"
}
if [ -n "$ask" ]; then
  queries "$ask" > "$scratch/queries"
else
  awk -F '\t' -v OFS='\t' 'NR % 41 == 0 { print NR % 990 + 1 " north main street apt 4", $2, $3, $1 }' \
    data/us-zips.tsv | queries > "$scratch/queries"
fi
cat > "$scratch/client.lua" << 'END'
local requests, at = {}, 0
function init()
  for line in io.lines(os.getenv("QUERIES")) do
    requests[#requests + 1] = wrk.format("GET", "/ShippingAPI.dll?API=Verify&XML=" .. line)
  end
end
function request()
  at = at % #requests + 1
  return requests[at]
end
END
export QUERIES=$scratch/queries

port=$((20000 + RANDOM % 10000))
service=http://127.0.0.1:$port
"$verifyd" --quiet --listen "127.0.0.1:$port" "${base[@]}" 2> /dev/null &
verifyd_pid=$!
pids+=("$verifyd_pid")
until curl --silent --output /dev/null "$service/"; do
  kill -0 "$verifyd_pid" || exit 1
  sleep 0.1
done
curl --silent "$service/ShippingAPI.dll?API=Verify&XML=$(head -n 1 "$scratch/queries")" > "$scratch/answer.xml"
port=$((port + 1))
cat > "$scratch/nginx.conf" << END
daemon off;
worker_processes auto;
pid $scratch/nginx.pid;
error_log $scratch/nginx.log;
events {}
http {
  access_log off;
  keepalive_requests 1000000000;
  client_body_temp_path $scratch/body;
  proxy_temp_path $scratch/proxy;
  fastcgi_temp_path $scratch/fastcgi;
  uwsgi_temp_path $scratch/uwsgi;
  scgi_temp_path $scratch/scgi;
  server {
    listen 127.0.0.1:$port;
    location = /ShippingAPI.dll { alias $scratch/answer.xml; types { text/xml xml; } }
  }
}
END
chmod 755 "$scratch" # nginx may serve as another user
nginx -p "$scratch" -e "$scratch/nginx.log" -c "$scratch/nginx.conf" &
pids+=($!)
sleep 1
[ "$(curl --silent "http://127.0.0.1:$port/ShippingAPI.dll")" = "$(cat "$scratch/answer.xml")" ] ||
  { cat "$scratch/nginx.log"; exit 1; }

# load URL SECONDS: requests a second, median and 99th percentile in microseconds, errors.
load() {
  wrk --threads 2 --connections 16 --duration "$2s" --latency --script "$scratch/client.lua" "$1" |
    awk '
      function us(text) { return text * (text ~ /us$/ ? 1 : text ~ /ms$/ ? 1000 : 1000000) }
      $1 == "50%" { median = us($2) }
      $1 == "99%" { last = us($2) }
      /^Requests\/sec:/ { rate = $2 }
      /Non-2xx|Socket errors/ { bad = $0 }
      END { printf "%.0f\t%.0f\t%.0f\t%s\n", rate, median, last, bad }'
}

memory() { awk '/^VmRSS:/ { print $2 }' "/proc/$verifyd_pid/status"; }
answered() { curl --silent "$service/metrics" | awk '/^postwright_documents_total / { print $2 }'; }

# times A B: how many times B is in A.
times() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", a / b }'; }

echo "$(wc --bytes < "$scratch/answer.xml") bytes an answer, $(wc --lines < "$scratch/queries") addresses, ${base[*]:-the base that comes with it}, load $(cut -d ' ' -f 1 /proc/loadavg)"
load "$service" 1 > /dev/null
ratios=()
printf 'nginx/s\tservice/s\tratio\tmedian us\t99%% us\t99%%/median\tof nginx\n'
for ((round = 0; round < rounds; ++round)); do
  IFS=$'\t' read -r before _ _ bad < <(load "http://127.0.0.1:$port" "$seconds")
  [ -z "$bad" ] || echo "nginx: $bad"
  IFS=$'\t' read -r here median last bad < <(load "$service" "$seconds")
  [ -z "$bad" ] || echo "service: $bad"
  IFS=$'\t' read -r after theirMedian theirLast bad < <(load "http://127.0.0.1:$port" "$seconds")
  [ -z "$bad" ] || echo "nginx: $bad"
  there=$(((before + after) / 2))
  ratios+=("$(times "$here" "$there")")
  printf '%d\t%d\t%s\t%d\t%d\t%s\t%s\n' "$there" "$here" "${ratios[-1]}" "$median" \
    "$last" "$(times "$last" "$median")" "$(times "$theirLast" "$theirMedian")"
done
text="service / nginx with ${base[*]:-the base that comes with it}, median"
echo "$text: $(printf '%s\n' "${ratios[@]}" | sort -n | sed -n "$(((rounds + 1) / 2))p")  $(bench/figure-before.sh "$text")"

printf 'requests\tmemory kB\tmedian us\t99%% us\t99%%/median\n'
printf '%d\t%d\n' "$(answered)" "$(memory)"
while [ "$(answered)" -lt "$((millions * 1000000))" ]; do
  IFS=$'\t' read -r _ median last _ < <(load "$service" 20)
  printf '%d\t%d\t%d\t%d\t%s\n' "$(answered)" "$(memory)" "$median" "$last" "$(times "$last" "$median")"
done
