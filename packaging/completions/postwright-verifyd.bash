# Completions of postwright-verifyd for bash. Where nothing is offered here, bash offers files.

_postwright_verifyd() {
  local words='--help --version --listen --users --base --path-prefix --log-addresses --quiet'
  words+=' --threads --connections --connections-per-address --idle-time --request-time'
  words+=' --header-size --body-size --open-page --open-status --trusted-proxy'
  words+=' --upstream --upstream-url --credentials --budget --cache --cache-lifetime --deadline'
  words+=' --fallback'

  case $3 in
    --upstream) words='postal-v3 verify-xml' ;;
    --fallback) words='base none' ;;
    --log-addresses | --quiet | --help | --version) ;;
    --*) return ;;
  esac
  mapfile -t COMPREPLY < <(compgen -W "$words" -- "$2")
}
complete -o bashdefault -o default -F _postwright_verifyd postwright-verifyd
