# Completions of postwright-base for bash. Where nothing is offered here, bash offers files.

_postwright_base() {
  local words=--help

  case $3 in
    --source | --licence | --attribution | --map | --unit) return ;;
  esac
  case ${COMP_WORDS[1]-} in
    import) words+=' --source --licence --attribution --map --partial --restart --quiet' ;;
    info) ;;
    lookup) words+=' --unit --zips' ;;
    *) words+=' --version import info lookup' ;;
  esac
  if [[ $2 == -* || $COMP_CWORD -eq 1 ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$2")
  fi
}
complete -o bashdefault -o default -F _postwright_base postwright-base
