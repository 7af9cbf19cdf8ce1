#!/usr/bin/env bash
# Fails where the options of a program differ between its --help, its manual page and what bash, fish
# and zsh offer for them. A shell that is not installed is passed over, and named.
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

# SHELL_offers WORD...: what a shell offers after the words, the last of which has been begun.
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
# zsh completes on a terminal alone: it is given one, takes all that it would offer into its line, and
# goes as soon as the line is written down. What it knows of all commands is kept for the next time.
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

# Compares the words on standard input with those that are wanted.
same() {
  sort --unique > "$scratch/found"
  diff "$scratch/wanted" "$scratch/found" && return
  echo "'<': in --help alone. '>': in $1 alone."
  status=1
}

# The options of the manual page's section OPTIONS: of the line after each .TP.
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

# The commands of the program, where it has any, stand at the end of its --help.
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
