# Completions of postwright for fish.

set -l command '__fish_seen_subcommand_from parse fix'
set -l fix '__fish_seen_subcommand_from fix'

complete -c postwright -n "not $command" -f
complete -c postwright -n "not $command" -a parse -d 'Split a label into the parts of its address'
complete -c postwright -n "not $command" -a fix -d 'Correct the address in a label'
complete -c postwright -s h -l help -d 'Print a help and exit'
complete -c postwright -l version -d 'Print the version and exit'

complete -c postwright -n "$command" -l jsonl -d 'Read a label a line, write a record a line'
complete -c postwright -n "$command" -l csv -d 'Read a table, CSV or TSV'
complete -c postwright -n "$command" -l columns -x -d 'The columns of the label, as street=2,city=3'
complete -c postwright -n "$command" -l output -r -F -d 'Write the records or the table to this file'
complete -c postwright -n "$fix" -l case -x -a 'upper lower mixed' -d 'The case of the corrected text'
complete -c postwright -n "$fix" -l punctuation -x -a 'keep postal remove' -d 'The signs of the corrected address'
complete -c postwright -n "$fix" -l keep-punctuation -d 'Another name for --punctuation keep'
complete -c postwright -n "$fix" -l names -x -a 'as-typed same-case' -d 'The lines around the address'
complete -c postwright -n "$fix" -l whole-label -d 'Ask about the whole text'
complete -c postwright -n "$fix" -l mixed-case -x -d 'Words as they are to be spelt in mixed case'
complete -c postwright -n "$fix" -l explain -d 'Say why each word was changed'
complete -c postwright -n "$fix" -l accept-doubtful -d 'Take doubtful corrections, too'
complete -c postwright -n "$fix" -l server -x -a '(__fish_print_hostnames)' -d 'The Verify service to ask'
complete -c postwright -n "$fix" -l timeout -x -d 'How long a request to it may last, as 20s'
complete -c postwright -n "$fix" -l resume -r -F -d 'Go on with the file of an interrupted run'
complete -c postwright -n "$fix" -l jobs -x -d 'How many fixes are under way at once'
complete -c postwright -n "$fix" -l give-up-after -x -d 'How long a service without an answer is waited for'
complete -c postwright -n "$fix" -l quiet -d 'Show no progress on a terminal'
