#!/usr/bin/env bash
# Runs nginx with the example sites in front of the service, on loopback with its own certificate, and
# restarts the instances in turn under load: no request may fail.
#
#   nginx.sh VERIFYD EXAMPLES
set -euo pipefail
verifyd=$1
examples=$2
for tool in nginx openssl curl; do
  command -v "$tool" > /dev/null || { echo "$tool is not installed: ./test.sh does so"; exit 77; }
done
scratch=$(mktemp -d)
declare -A pids=()
stop() {
  rm -f "$scratch/load"
  kill -KILL "${pids[@]}" 2> /dev/null || true
  wait 2> /dev/null
  rm -rf "$scratch"
}
trap stop EXIT
fail() { echo "$1"; exit 1; }

# await FILE TEXT: waits until the file holds the text.
await() {
  for _ in {1..200}; do
    if grep --quiet --fixed-strings -- "$2" "$1" 2> /dev/null; then return; fi
    sleep 0.05
  done
  fail "'$2' did not come; $1 holds: $(cat "$1")"
}

# start NAME ADDRESS: runs an instance; address[NAME] is where it listens.
declare -A address=()
start() {
  : > "$scratch/$1.log"
  "$verifyd" --listen "$2" 2>> "$scratch/$1.log" &
  pids[$1]=$!
  await "$scratch/$1.log" "listening on "
  address[$1]=$(sed -n 's/.*listening on //p' "$scratch/$1.log")
}

restart() {
  kill -TERM "${pids[$1]}"
  wait "${pids[$1]}" || fail "the instance $1 ended with $?: $(tail -n 3 "$scratch/$1.log")"
  start "$1" "${address[$1]}"
}

# serve SITE: runs nginx with the site on a free port.
serve() {
  for _ in {1..10}; do
    port=$((20000 + RANDOM % 10000))
    sed -e "s/listen 443/listen 127.0.0.1:$port/" -e "s/listen 80;/listen 127.0.0.1:$((port + 1));/" \
      -e "s/verify\.example\.com;/localhost;/" -e "s/server_name secure/server_name localhost secure/" \
      -e "s,/etc/ssl/[a-z]*/[a-z.-]*\(\.pem\|\.key\),$scratch/tls\1," -e "s,/var/log/nginx,$scratch," \
      -e "s/127\.0\.0\.1:847[01] /${address[a]} /" -e "s/127\.0\.0\.1:8472 /${address[b]} /" \
      "$examples/$1" > "$scratch/site.conf"
    cat > "$scratch/nginx.conf" << END
daemon off;
master_process off;
pid $scratch/nginx.pid;
error_log $scratch/nginx.log;
events {}
http {
  client_body_temp_path $scratch/body;
  proxy_temp_path $scratch/proxy;
  fastcgi_temp_path $scratch/fastcgi;
  uwsgi_temp_path $scratch/uwsgi;
  scgi_temp_path $scratch/scgi;
  include $scratch/site.conf;
}
END
    nginx -p "$scratch" -e "$scratch/nginx.log" -c "$scratch/nginx.conf" &
    pids[nginx]=$!
    for _ in {1..100}; do
      if ask --output /dev/null "https://localhost:$port/"; then return; fi
      kill -0 "${pids[nginx]}" 2> /dev/null || break
      sleep 0.05
    done
  done
  fail "nginx does not serve $1: $(cat "$scratch/nginx.log")"
}

ask() { curl --silent --show-error --noproxy '*' --cacert "$scratch/tls.pem" "$@" 2> "$scratch/curl.$BASHPID"; }

# status WANTED CURL_ARGUMENT...
status() {
  local wanted=$1 got
  shift
  got=$(ask --output "$scratch/answer" --write-out '%{http_code}' "$@") || true
  [ "$got" = "$wanted" ] || fail "HTTP $got instead of $wanted for ${*:0:200}: $(head -c 300 "$scratch/answer")"
}

# Asks by GET and POST in turn until the file $scratch/load is gone; prints a line an answer.
load() {
  while [ -e "$scratch/load" ]; do
    ask --parallel --parallel-max 8 --output /dev/null --write-out '%{http_code} %{size_download}\n' "$@" ||
      echo "curl: $(head -n 1 "$scratch/curl.$BASHPID")"
  done
}

openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 1 -subj /CN=localhost \
  -addext subjectAltName=DNS:localhost,DNS:secure.shippingapis.com -keyout "$scratch/tls.key" -out "$scratch/tls.pem" 2> /dev/null
document='<AddressValidateRequest USERID="1"><Address><Address2>12 main street</Address2>'
document+='<Zip5>78701</Zip5></Address></AddressValidateRequest>'
start a 127.0.0.1:0
start b 127.0.0.1:0

serve one-instance.conf
site=https://localhost:$port
status 200 --get "$site/ShippingAPI.dll" --data API=Verify --data-urlencode "XML=$document"
grep --quiet '<Address2>12 MAIN ST</Address2><City>AUSTIN</City>' "$scratch/answer" ||
  fail "no answer: $(cat "$scratch/answer")"
head -c 12000 /dev/zero | tr '\0' ' ' > "$scratch/blanks"
status 200 --get "$site/ShippingAPI.dll" --data API=Verify --data "XML=$(tr ' ' '+' < "$scratch/blanks")" \
  --data-urlencode "a=$document"
status 404 "$site/status"
head -c 70000 /dev/zero > "$scratch/large"
status 413 --data-binary "@$scratch/large" "$site/ShippingAPI.dll?API=Verify"
kill -QUIT "${pids[nginx]}" && wait "${pids[nginx]}"

serve old-names.conf
old=secure.shippingapis.com
for way in "https://$old:$port/shippingapi.dll --resolve $old:$port:127.0.0.1" \
  "http://$old/ShippingAPITest.dll --noproxy none --proxy http://localhost:$((port + 1))" \
  "http://$old/ShippingAPI.DLL --noproxy none --proxy http://${address[a]}"; do
  read -r -a arguments <<< "$way"
  status 200 --get "${arguments[@]}" --data API=Verify --data-urlencode "XML=$document"
  grep --quiet '<Address2>12 MAIN ST</Address2><City>AUSTIN</City>' "$scratch/answer" ||
    fail "no answer by $way: $(cat "$scratch/answer")"
done
kill -QUIT "${pids[nginx]}" && wait "${pids[nginx]}"

serve two-instances.conf
site=https://localhost:$port
touch "$scratch/load"
load "$site/ShippingAPI.dll?API=Verify&a=[1-300]" --data-binary "$document" > "$scratch/post.log" &
posts=$!
query=$(printf %s "$document" | sed 's/</%3C/g; s/>/%3E/g; s/"/%22/g; s/ /+/g')
load "$site/ShippingAPI.dll?API=Verify&XML=$query&a=[1-300]" > "$scratch/get.log" &
gets=$!
for instance in a b a b; do
  await "$scratch/$instance.log" " api=Verify addresses=1 rejected=0"
  restart "$instance"
done
await "$scratch/b.log" " api=Verify addresses=1 rejected=0"
rm "$scratch/load"
wait "$posts" "$gets"
for log in post get; do
  [ "$(wc --lines < "$scratch/$log.log")" -ge 300 ] || fail "too few answers to $log: $(cat "$scratch/$log.log")"
  [ "$(sort --unique "$scratch/$log.log" | wc --lines)" = 1 ] && grep --quiet '^200 ' "$scratch/$log.log" ||
    fail "answers to $log: $(sort "$scratch/$log.log" | uniq --count)"
done
! grep 'MAIN\|main' "$scratch"/postwright*.log || fail "nginx has written addresses into a log"
