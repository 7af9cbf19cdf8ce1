#!/usr/bin/env bash
# Fails where the options of a program differ between its --help, its manual page and its completions
# for bash, zsh and fish:
#
#   check-options.sh PROGRAM MANUAL_PAGE
set -euo pipefail
export LC_ALL=C.UTF-8
program=$1
page=$2
name=$(basename "$program")
completions=$(dirname "$(readlink -f "$0")")/../../packaging/completions
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
status=0

# The long options at the start of the lines of a --help on standard input.
help_options() { grep --extended-regexp --only-matching '^  (-[a-z],)?--[a-z-]+' | sed 's/.*--/--/'; }

# What bash offers behind the words given, the last of which has been begun.
offered() {
  COMP_WORDS=("$@")
  COMP_CWORD=$(($# - 1))
  COMPREPLY=()
  "$function" "$1" "${!#}" "${@:$#-1:1}"
  printf '%s\n' "${COMPREPLY[@]}" | grep '^--'
}

# Compares the options on standard input with those of --help.
same() {
  sort --unique > "$scratch/found"
  diff "$scratch/wanted" "$scratch/found" && return
  echo "'<': in --help alone. '>': in $1 alone."
  status=1
}

# The options of the manual page's section OPTIONS: of the line behind each .TP.
page_options() {
  sed -n '/^\.SH OPTIONS/,/^\.SH [^O]/p' "$page" | grep --after-context=1 '^\.TP' | sed 's/\\-/-/g' |
    grep --extended-regexp --only-matching -- '--[a-z][a-z-]+'
}

# shellcheck disable=SC1090
source "$completions/$name.bash"
function=_${name//-/_}

# The commands of the program, where it has any, stand at the end of its --help.
mapfile -t commands < <("$program" --help | sed -nE '1,/^Subcommands:/d; s/^  ([a-z]+) .*/\1/p')
for command in '' "${commands[@]}"; do
  "$program" ${command:+"$command"} --help | help_options | sort --unique > "$scratch/wanted"
  same "$name.bash behind '$name $command'" < <(offered "$name" ${command:+"$command"} --)
  cat "$scratch/wanted" >> "$scratch/all"
done
sort --unique "$scratch/all" > "$scratch/wanted"

same "$page" < <(page_options)
same "_$name" < <(grep --extended-regexp --only-matching -- '--[a-z][a-z-]+' "$completions/_$name")
same "$name.fish" < <(sed -nE 's/^complete .* -l ([a-z-]+).*/--\1/p' "$completions/$name.fish")
exit "$status"
