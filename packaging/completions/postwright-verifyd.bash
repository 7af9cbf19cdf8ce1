# Completions of postwright-verifyd for bash. Where nothing is offered here, bash offers files.

_postwright_verifyd() {
  case $3 in
    --base | --listen | --path-prefix) ;;
    *)
      mapfile -t COMPREPLY < <(
        compgen -W '--help --version --listen --base --path-prefix --log-addresses' -- "$2")
      ;;
  esac
}
complete -o bashdefault -o default -F _postwright_verifyd postwright-verifyd
