# Completions of postwright-base for fish.

set -l command '__fish_seen_subcommand_from import info lookup'
set -l import '__fish_seen_subcommand_from import'
set -l lookup '__fish_seen_subcommand_from lookup'

complete -c postwright-base -n "not $command" -f
complete -c postwright-base -n "not $command" -a import -d 'Make a base, or add files to one'
complete -c postwright-base -n "not $command" -a info -d 'Tell what a base holds, and its sources'
complete -c postwright-base -n "not $command" -a lookup -d 'Tell what becomes of an address, and why'
complete -c postwright-base -s h -l help -d 'Print a help and exit'
complete -c postwright-base -n "not $command" -l version -d 'Print the version and exit'

complete -c postwright-base -n "$import" -l source -x -d 'What the files are called as a whole'
complete -c postwright-base -n "$import" -l licence -x -d 'Under which licence they are'
complete -c postwright-base -n "$import" -l attribution -x -d 'What has to be said wherever they go'
complete -c postwright-base -n "$import" -l map -x -d 'Which columns make up which field'
complete -c postwright-base -n "$import" -l partial -d 'The files lack streets of their ZIP codes'
complete -c postwright-base -n "$import" -l restart -d 'Begin anew, and throw away what a stopped import has read'
complete -c postwright-base -n "$import" -l quiet -d 'Do not show how far it is'

complete -c postwright-base -n "$lookup" -l unit -x -d 'The line above, such as an apartment'
complete -c postwright-base -n "$lookup" -l zips -r -F -d 'Further ZIP codes'
