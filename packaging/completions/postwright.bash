# Completions of postwright for bash. Where nothing is offered here, bash offers files.

_postwright() {
  local current=$2 previous=$3 words='--help --version'

  case $previous in
    --case)
      mapfile -t COMPREPLY < <(compgen -W 'upper lower mixed' -- "$current")
      return
      ;;
    --punctuation)
      mapfile -t COMPREPLY < <(compgen -W 'keep postal remove' -- "$current")
      return
      ;;
    --names)
      mapfile -t COMPREPLY < <(compgen -W 'as-typed same-case' -- "$current")
      return
      ;;
    --columns | --output | --resume | --jobs | --mixed-case | --server | --timeout | --give-up-after)
      return
      ;;
  esac

  case ${COMP_WORDS[1]-} in
    parse)
      words+=' --jsonl --csv --columns --output --resume --jobs'
      ;;
    fix)
      words+=' --jsonl --csv --columns --output --case --punctuation --keep-punctuation --names --whole-label --mixed-case --explain --candidates --accept-doubtful --server --timeout --resume --retry-failed --jobs --give-up-after --quiet'
      ;;
    *)
      words+=' parse fix'
      ;;
  esac
  if [[ $current == -* || $COMP_CWORD -eq 1 ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
  fi
}
complete -o bashdefault -o default -F _postwright postwright
