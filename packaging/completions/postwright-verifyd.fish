# Completions of postwright-verifyd for fish.

complete -c postwright-verifyd -f
complete -c postwright-verifyd -s h -l help -d 'Print a help and exit'
complete -c postwright-verifyd -l version -d 'Print the version and exit'
complete -c postwright-verifyd -l listen -x -d 'Where to listen'
complete -c postwright-verifyd -l base -r -F -d 'What to know instead of the base that comes along'
complete -c postwright-verifyd -l path-prefix -x -d 'What stands in front of /ShippingAPI.dll'
complete -c postwright-verifyd -l log-addresses -d 'Write addresses into the log'
complete -c postwright-verifyd -l open-status -d 'Show the status pages to every client'
complete -c postwright-verifyd -l upstream -x -a 'postal-v3 verify-xml' -d 'Whom to ask instead of the base'
complete -c postwright-verifyd -l upstream-url -x -d 'Where postal-v3 is'
complete -c postwright-verifyd -l credentials -r -F -d 'What the upstream knows the service by'
complete -c postwright-verifyd -l budget -x -d 'How often the upstream is asked at most'
complete -c postwright-verifyd -l cache -r -F -d 'Where answers are kept'
complete -c postwright-verifyd -l cache-lifetime -x -d 'How long answers are good for'
complete -c postwright-verifyd -l deadline -x -d 'How long a request waits for the upstream'
complete -c postwright-verifyd -l fallback -x -a 'base none' -d 'What answers where the upstream cannot'
