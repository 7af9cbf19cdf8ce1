# Completions of postwright-verifyd for fish.

complete -c postwright-verifyd -f
complete -c postwright-verifyd -s h -l help -d 'Print a help and exit'
complete -c postwright-verifyd -l version -d 'Print the version and exit'
complete -c postwright-verifyd -l listen -x -d 'Where to listen'
complete -c postwright-verifyd -l base -r -F -d 'What to know instead of the base that comes along'
complete -c postwright-verifyd -l path-prefix -x -d 'What stands in front of /ShippingAPI.dll'
complete -c postwright-verifyd -l log-addresses -d 'Write addresses into the log'
