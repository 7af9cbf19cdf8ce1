#!/bin/sh
# Makes the certificate where there is none yet, and runs the service with nginx in front. Arguments are
# those of postwright-verifyd. What a client needs is in /certificate; the key stays in the container.
set -eu
if [ ! -e /etc/ssl/private/old-names.key ]; then
  openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 825 \
    -subj '/CN=Postwright in place of the retired interface' \
    -addext 'subjectAltName=DNS:secure.shippingapis.com,DNS:production.shippingapis.com,DNS:stg-secure.shippingapis.com,DNS:stg-production.shippingapis.com' \
    -keyout /etc/ssl/private/old-names.key -out /etc/ssl/certs/old-names.pem 2> /dev/null
fi
mkdir -p /certificate
cp /etc/ssl/certs/old-names.pem /certificate/old-names.pem

# Whichever ends takes the other along, and the container with it: whoever runs it starts it anew.
setpriv --reuid nobody --regid nogroup --clear-groups --no-new-privs postwright-verifyd --listen 127.0.0.1:8470 "$@" &
service=$!
nginx -g 'daemon off;' &
proxy=$!
trap 'kill "$service" "$proxy" 2> /dev/null' EXIT
trap 'exit 0' INT TERM
while kill -0 "$service" && kill -0 "$proxy"; do
  sleep 1 &
  wait $!
done 2> /dev/null
exit 1
