#!/usr/bin/env bash
# Fails if one of the windows' tables of texts lacks a text of the other or of the sources, or has an empty
# or unused one.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../../../client"

ids() {
  grep --only-matching 'message id="[^"]*"' "resources/postwright_$1.ts" | cut --delimiter='"' --fields=2 | sort
}
used() {
  grep --no-filename --recursive --only-matching --include='*.cpp' --include='*.h' '"S[A-Z][A-Za-z]*"' . | tr --delete '"'
  grep --no-filename --only-matching 'id="S[A-Z][A-Za-z]*"' resources/*.ui | cut --delimiter='"' --fields=2
}

diff <(ids en) <(used | sort --unique)
# What the core says has its English there.
diff <(ids en) <(ids es | grep --invert-match '^SCore-')
[[ $(ids en | wc -l) -gt 80 ]]
empty='type="unfinished"|<(translation|numerusform)[^>]*(/>|> *</)'
if grep --line-number --extended-regexp "$empty" resources/postwright_*.ts; then
  echo "These texts are not translated."
  exit 1
fi
