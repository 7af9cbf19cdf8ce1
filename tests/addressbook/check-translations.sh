#!/usr/bin/env bash
# Fails if a translation lacks a text of the sources, or has one that is not translated:
# check-translations.sh LUPDATE
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."
copies=$(mktemp -d)
trap 'rm -rf "$copies"' EXIT

cp apps/addressbook/translations/*.ts "$copies"
apps/addressbook/translations/update.sh "$1" "$copies"/*.ts
if ! diff --recursive apps/addressbook/translations "$copies" --exclude='*.sh'; then
  echo "The tables are not those of the sources: build update-addressbook-translations."
  exit 1
fi
if grep --line-number 'type="unfinished"' "$copies"/*.ts; then
  echo "These texts are not translated."
  exit 1
fi
