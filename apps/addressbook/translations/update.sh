#!/usr/bin/env bash
# Takes the texts of the sources into the tables of translations: update.sh LUPDATE TABLE...
# Texts that are new stand there as unfinished. English holds the plurals alone.
set -euo pipefail
lupdate=$1
shift
tables=$(realpath "$@")
cd "$(dirname "$(readlink -f "$0")")/../../.."

for table in $tables; do
  plurals=()
  case $table in *_en.ts) plurals=(-pluralonly) ;; esac
  "$lupdate" -silent -I . apps/addressbook apps/tables apps/workbook "${plurals[@]}" -no-obsolete -locations none -ts "$table"
done
