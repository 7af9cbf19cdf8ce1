#!/usr/bin/env bash
# Fails if one of the windows' tables of texts lacks a text of the other, or has an empty one.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../../../client/resources"

ids() {
  grep --only-matching 'message id="[^"]*"' "$1" | sort
}

# What the core says has its English there.
diff <(ids postwright_en.ts) <(ids postwright_es.ts | grep --invert-match '"SCore-')
[[ $(ids postwright_en.ts | wc -l) -gt 80 ]]
empty='type="unfinished"|<(translation|numerusform)[^>]*(/>|> *</)'
if grep --line-number --extended-regexp "$empty" postwright_*.ts; then
  echo "These texts are not translated."
  exit 1
fi
