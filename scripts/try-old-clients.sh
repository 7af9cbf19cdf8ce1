#!/usr/bin/env bash
# Asks the service with unchanged clients of the retired interface, from npm: one whose server is a
# setting, one with a fixed host (by a hosts entry, and through http_proxy), and one that uses HTTPS. Runs
# in a namespace of its own, so that it changes nothing on the machine. Needs the network for npm.
# docs/old-clients.md explains the setup.
#
#   scripts/try-old-clients.sh [VERIFYD]
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
verifyd=$(realpath "${1:-$here/build/bin/postwright-verifyd}")
for tool in npm node nginx openssl unshare; do
  command -v "$tool" > /dev/null || { echo "$tool is not installed"; exit 77; }
done
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"

echo "Fetching three clients from npm (some 5 MB) ..."
npm install --silent --no-audit --no-fund --ignore-scripts --no-package-lock --prefix "$scratch" \
  usps-webtools usps-webtools-promise usps-web-tools-node-sdk

openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 1 -subj /CN=old-names \
  -addext subjectAltName=DNS:secure.shippingapis.com -keyout tls.key -out tls.pem 2> openssl.log
echo "127.0.0.1 localhost secure.shippingapis.com production.shippingapis.com" > hosts
sed -e "s,/etc/ssl/[a-z]*/old-names,$scratch/tls," -e "s,/var/log/nginx,$scratch," \
  "$here/examples/nginx/old-names.conf" > site.conf
cat > nginx.conf << END
user root;
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

# What each client returns for the three calls, and for a ZIP code that does not exist.
cat > ask.js << 'END'
const assert = require('assert');
const wait = (object, name, ...given) =>
  new Promise((done, fail) => object[name](...given, (error, got) => (error ? fail(error) : done(got))));
const line = '12 north main street', city = 'austin', state = 'TX', zip = '78701';

const clients = {
  async setting() {
    const Client = require('usps-webtools');
    const client = new Client({server: 'http://127.0.0.1:8470/ShippingAPI.dll', userId: 'X'});
    const found = await wait(client, 'verify', {street1: line, street2: 'apt 4', city, state, zip});
    assert.deepStrictEqual([found.street1, found.street2, found.city, found.zip, found.dpv_confirmation],
                           ['12 N MAIN ST', 'APT 4', 'AUSTIN', '78701', 'N']);
    const place = await wait(client, 'cityStateLookup', zip);
    assert.deepStrictEqual({...place}, {city: 'AUSTIN', state: 'TX', zip});
    const plus = await wait(client, 'zipCodeLookup', {street1: line, city: 'hutto', state});
    assert.deepStrictEqual([plus.street1, plus.city, plus.zip], ['12 N MAIN ST', 'HUTTO', '78634-']);
    await assert.rejects(wait(client, 'cityStateLookup', '00000'), {message: 'Invalid Zip Code.'});
  },
  async compiled() {
    const client = require('usps-web-tools-node-sdk');
    client.configure({userID: 'X'});
    const calls = client.addressInformation;
    const address = {firmName: '', address1: 'apt 4', address2: line, city, state, zip5: zip, zip4: ''};
    const {address: found} = await wait(calls, 'verify', {includeOptionalElements: true, address: [address]});
    assert.deepStrictEqual([found.address2, found.address1, found.zip5], ['12 N MAIN ST', 'APT 4', zip]);
    const {zipCode: places} = await wait(calls, 'cityStateLookup', {zipCode: [zip, '02108']});
    assert.deepStrictEqual(places.map(({city: name}) => name), ['AUSTIN', 'BOSTON']);
    const {address: plus} =
        await wait(calls, 'zipCodeLookup', {address: [{...address, city: 'hutto', address1: ''}]});
    assert.deepStrictEqual([plus.address2, plus.zip5], ['12 N MAIN ST', '78634']);
  },
  async secure() {
    const Client = require('usps-webtools-promise').default;
    const client = new Client({userId: 'X'});
    const address = {Address1: line, Address2: 'apt 4', City: city, State: state, Zip5: zip};
    const found = await client.verify(address);
    assert.deepStrictEqual([found.Address1, found.Address2, found.City], ['12 N MAIN ST', 'APT 4', 'AUSTIN']);
    assert.strictEqual((await client.cityStateLookup(zip)).City, 'AUSTIN');
    assert.strictEqual((await client.zipCodeLookup({...address, City: 'hutto'})).Zip5, '78634');
    assert.strictEqual((await client.cityStateLookup('00000')).message, 'Invalid Zip Code.');
  },
};
const name = process.argv[2];
clients[name]().then(() => console.log(`${process.argv[3]}: every answer as it should be`),
                     (error) => { console.error(error); process.exit(1); });
END

cat > run.sh << END
set -eu
mount --bind "$scratch/hosts" /etc/hosts
ip link set lo up
"$verifyd" --listen 127.0.0.1:8470 2> "$scratch/verifyd.log" &
nginx -p "$scratch" -e "$scratch/nginx.log" -c "$scratch/nginx.conf" &
for each in 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20; do
  sleep 0.2
  if grep -q "listening on" "$scratch/verifyd.log" && [ -s "$scratch/nginx.pid" ]; then break; fi
done
unset http_proxy https_proxy HTTP_PROXY HTTPS_PROXY no_proxy NO_PROXY
node ask.js setting "usps-webtools, its server set"
node ask.js compiled "usps-web-tools-node-sdk, by a hosts entry"
http_proxy=http://127.0.0.1:8470 node ask.js compiled "usps-web-tools-node-sdk, through http_proxy"
NODE_EXTRA_CA_CERTS="$scratch/tls.pem" node ask.js secure "usps-webtools-promise, over HTTPS"
END
if ! unshare --user --map-root-user --net --mount --pid --fork --kill-child sh run.sh; then
  tail -n 5 verifyd.log nginx.log
  exit 1
fi
