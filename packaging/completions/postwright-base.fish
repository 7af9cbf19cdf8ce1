# Completions of postwright-base for fish.

set -l command '__fish_seen_subcommand_from fetch update list import info lookup'
set -l fetch '__fish_seen_subcommand_from fetch'
set -l asks '__fish_seen_subcommand_from fetch update'
set -l import '__fish_seen_subcommand_from import'
set -l lookup '__fish_seen_subcommand_from lookup'

complete -c postwright-base -n "not $command" -f
complete -c postwright-base -n "not $command" -a fetch -d 'Fetch the addresses of a place, and make a base of them'
complete -c postwright-base -n "not $command" -a update -d 'Fetch what is newer than a base'
complete -c postwright-base -n "not $command" -a list -d 'Tell which bases are there, and how old'
complete -c postwright-base -n "not $command" -a import -d 'Make a base, or add files to one'
complete -c postwright-base -n "not $command" -a info -d 'Tell what a base holds, and its sources'
complete -c postwright-base -n "not $command" -a lookup -d 'Tell what becomes of an address, and why'
complete -c postwright-base -s h -l help -d 'Print a help text and exit'
complete -c postwright-base -n "not $command" -l version -d 'Print the version and exit'

complete -c postwright-base -n "$fetch" -f -a 'all alabama alaska arizona arkansas california colorado connecticut delaware district-of-columbia florida georgia hawaii idaho illinois indiana iowa kansas kentucky louisiana maine maryland massachusetts michigan minnesota mississippi missouri montana nebraska nevada new-hampshire new-jersey new-mexico new-york north-carolina north-dakota ohio oklahoma oregon pennsylvania puerto-rico rhode-island south-carolina south-dakota tennessee texas utah vermont virginia washington west-virginia wisconsin wyoming'
complete -c postwright-base -n "$fetch" -l from -x -a 'tiger nad openaddresses' -d 'Who publishes them'
complete -c postwright-base -n "$fetch" -l year -x -d 'With tiger, that year instead of the newest'
complete -c postwright-base -n "$fetch" -l base -r -F -d 'The base'
complete -c postwright-base -n "$fetch" -l mirror -x -d 'A server that has the same files'
complete -c postwright-base -n "$asks" -l host -x -d 'Another host that the server may redirect to'
complete -c postwright-base -n "$asks" -l token-file -r -F -d 'A file with the token of an account there'
complete -c postwright-base -n "$fetch" -l restart -d 'Start over, and throw away what a stopped fetch has downloaded'
complete -c postwright-base -n "$asks" -l quiet -d 'Do not show progress'
complete -c postwright-base -n "$asks" -l json -d 'Report progress as JSON lines'

complete -c postwright-base -n "$import" -l source -x -d 'The name of the files as a whole'
complete -c postwright-base -n "$import" -l licence -x -d 'The licence of the files'
complete -c postwright-base -n "$import" -l attribution -x -d 'The attribution that must go with the files'
complete -c postwright-base -n "$import" -l map -x -d 'Which columns make up which field'
complete -c postwright-base -n "$import" -l partial -d 'The files do not have all streets of their ZIP codes'
complete -c postwright-base -n "$import" -l restart -d 'Start over, and throw away what a stopped import has read'
complete -c postwright-base -n "$import" -l quiet -d 'Do not show progress'

complete -c postwright-base -n "$lookup" -l unit -x -d 'The line above, such as an apartment'
complete -c postwright-base -n "$lookup" -l zips -r -F -d 'Further ZIP codes'
