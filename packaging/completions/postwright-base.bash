# Completions of postwright-base for bash. Where nothing is offered here, bash offers files.

_postwright_states='alabama alaska arizona arkansas california colorado connecticut delaware
  district-of-columbia florida georgia hawaii idaho illinois indiana iowa kansas kentucky louisiana maine
  maryland massachusetts michigan minnesota mississippi missouri montana nebraska nevada new-hampshire
  new-jersey new-mexico new-york north-carolina north-dakota ohio oklahoma oregon pennsylvania puerto-rico
  rhode-island south-carolina south-dakota tennessee texas utah vermont virginia washington west-virginia
  wisconsin wyoming'

_postwright_base() {
  local words=--help

  case $3 in
    --from)
      mapfile -t COMPREPLY < <(compgen -W 'tiger nad openaddresses' -- "$2")
      return
      ;;
    --year | --mirror | --host | --source | --licence | --attribution | --map | --unit) return ;;
  esac
  case ${COMP_WORDS[1]-} in
    fetch)
      words+=' --from --year --base --mirror --host --token-file --restart --quiet --json'
      if [[ $2 != -* && $3 != --base && $3 != --token-file ]]; then
        mapfile -t COMPREPLY < <(compgen -W "all $_postwright_states" -- "$2")
        return
      fi
      ;;
    update) words+=' --host --token-file --quiet --json' ;;
    list) ;;
    import) words+=' --source --licence --attribution --map --partial --restart --quiet' ;;
    info) ;;
    lookup) words+=' --unit --zips' ;;
    *) words+=' --version fetch update list import info lookup' ;;
  esac
  if [[ $2 == -* || $COMP_CWORD -eq 1 ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$2")
  fi
}
complete -o bashdefault -o default -F _postwright_base postwright-base
