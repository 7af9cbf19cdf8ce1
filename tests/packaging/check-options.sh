#!/usr/bin/env bash
# Fails if a program's options differ between its --help, its manual page and the completions of bash,
# fish and zsh. A shell that is not installed is skipped, and named.
#
#   check-options.sh PROGRAM MANUAL_PAGE
set -euo pipefail
export LC_ALL=C.UTF-8
program=$1
page=$2
name=$(basename "$program")
completions=$(readlink -f "$(dirname "$0")/../../packaging/completions")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export HOME=$scratch completions scratch name
status=0

# The long options at the start of the lines of a --help on standard input.
help_options() { grep --extended-regexp --only-matching '^  (-[a-z],)?--[a-z-]+' | sed 's/.*--/--/'; }

# SHELL_offers WORD...: what a shell offers to complete the last of the words.
bash_offers() {
  COMP_WORDS=("$@")
  COMP_CWORD=$(($# - 1))
  COMPREPLY=()
  "$function" "$1" "${!#}" "${@:$#-1:1}"
  printf '%s\n' "${COMPREPLY[@]}"
}
fish_offers() {
  # shellcheck disable=SC2016
  fish --no-config -c 'source $completions/$name.fish; complete --do-complete "$argv"' "$*" | cut -f 1
}
# zsh completes only on a terminal: it is given one, inserts everything it would offer into its line, and
# is stopped as soon as the line is saved. What it knows of all commands is kept for the next time.
zsh_offers() {
  cat > "$scratch/.zshrc" <<'END'
fpath=($completions $fpath)
autoload -U compinit && compinit -C -d $scratch/known
zle -C all-matches complete-word _generic
zstyle ':completion:*' completer _all_matches _complete
zstyle ':completion:*' insert true
zle-line-init() { BUFFER=$line; CURSOR=$#line; zle all-matches; print -rl -- ${=BUFFER} > $scratch/offered; exit }
zle -N zle-line-init
END
  TERM=vt100 ZDOTDIR=$scratch line="$*" timeout 120 zsh -f -c \
    'zmodload zsh/zpty; zpty shell zsh -d -i; while zpty -r shell; do :; done' > /dev/null < /dev/null
  grep --invert-match --line-regexp --fixed-strings "$(printf '%s\n' "${@:1:$#-1}")" "$scratch/offered"
}

# Compares the words on standard input with the expected ones.
same() {
  sort --unique > "$scratch/found"
  diff "$scratch/wanted" "$scratch/found" && return
  echo "'<': in --help alone. '>': in $1 alone."
  status=1
}

# The options in the manual page's section OPTIONS: from the line after each .TP.
page_options() {
  sed -n '/^\.SH OPTIONS/,/^\.SH [^O]/p' "$page" | grep --after-context=1 '^\.TP' | sed 's/\\-/-/g' |
    grep --extended-regexp --only-matching -- '--[a-z][a-z-]+'
}

# shellcheck disable=SC1090
source "$completions/$name.bash"
function=_${name//-/_}
shells=()
for shell in bash fish zsh; do
  if command -v $shell > /dev/null; then shells+=("$shell"); else echo "$shell is not installed; not tried"; fi
done

# The program's commands, if it has any, are at the end of its --help.
mapfile -t commands < <("$program" --help | sed -nE '1,/^Subcommands:/d; s/^  ([a-z]+) .*/\1/p')
for command in '' "${commands[@]}"; do
  "$program" ${command:+"$command"} --help | help_options | sort --unique > "$scratch/wanted"
  cat "$scratch/wanted" >> "$scratch/all"
  for shell in "${shells[@]}"; do
    same "$shell after '$name $command'" < <("${shell}_offers" "$name" ${command:+"$command"} --)
  done
done
if [ ${#commands[@]} -gt 0 ]; then
  printf '%s\n' "${commands[@]}" | sort > "$scratch/wanted"
  for shell in "${shells[@]}"; do
    same "$shell after '$name'" < <("${shell}_offers" "$name" '' | grep --invert-match '^-')
  done
fi
sort --unique "$scratch/all" > "$scratch/wanted"
same "$page" < <(page_options)
exit "$status"
