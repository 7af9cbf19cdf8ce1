# Completions of postwright-addressbook for bash. Where nothing is offered here, bash offers files.

_postwright_addressbook() {
  if [[ $2 == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W '--help --version --server --timeout' -- "$2")
  fi
}
complete -o bashdefault -o default -F _postwright_addressbook postwright-addressbook
