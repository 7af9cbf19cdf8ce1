#!/usr/bin/env bash
# Fails where an include points backwards. A rule names a folder and what its files may include
# besides one another: "<" stands for a public header, named by the file it lives in, '"' for a
# private one, "Qt" for a header of Qt or one that Qt generates. System headers are free.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

# The first rule whose folder holds the including file counts.
rules='
core/records  <core/Export.h
core/parser   <core/(Export.h|records/.*)  "core/records/.*
core/review   <core/(Export.h|records/.*|parser/.*)  "core/(records|parser)/.*
core/c        <(core|platform)/.*
core/engine   <core/(Export.h|records/.*|parser/.*)  "core/(records|parser)/.*  <platform/IPlatformServices.h
platform      <core/Export.h  "common/.*
client/suite  <client/ClientExport.h  Qt
client        <(core|platform)/.*  Qt
common
postal/words  "core/parser/(UnitWords|Vocabulary).h  "common/.*
postal        "common/.*
service       "common/.*  "postal/.*
apps          <.*  "common/.*  "postal/.*  "service/.*  Qt
'

find common core platform client postal service apps -name '*.h' -o -name '*.cpp' | sort |
  xargs awk -v rules="$rules" '
    BEGIN {
      count = split(rules, rule, "\n")
      for (i = 1; i < ARGC; ++i) { name = ARGV[i]; sub(/.*\//, "", name); home[name] = ARGV[i] }
    }
    !/^#include ["<]/ { next }
    {
      target = $2; sub(/[">]$/, "", target)
      if (sub(/^<postwright\//, "<", target)) { target = "<" home[substr(target, 2)] }
      else if (target ~ /^(<Q|"ui_)/) { target = "Qt" }
      else if (target ~ /^</) { next }
      for (i = 1; i <= count; ++i) {
        allowed = split(rule[i], word, " ")
        if (allowed && index(FILENAME, word[1] "/") == 1) { break }
      }
      if (i > count || index(substr(target, 2), word[1] "/") == 1) { next }
      for (j = 2; j <= allowed; ++j) { if (target ~ "^" word[j] "$") { next } }
      print FILENAME ":" FNR ": " word[1] " may not include " $2; bad = 1
    }
    END { exit bad }'
