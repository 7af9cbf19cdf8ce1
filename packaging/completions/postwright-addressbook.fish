# Completions of postwright-addressbook for fish.

complete -c postwright-addressbook -s h -l help -d 'Print a help text and exit'
complete -c postwright-addressbook -l version -d 'Print the version and exit'
complete -c postwright-addressbook -l server -x -a '(__fish_print_hostnames)' -d 'The Verify service to ask'
complete -c postwright-addressbook -l timeout -x -d 'How long a request to it may last, as 20s'
