# Completion of tallyo-cli's command line: commands, options, and the names of the stored links.

# The words before the cursor that belong to no option.
function __tallyo_cli_words
    set -l skip 0
    for word in (commandline -opc)[2..-1]
        if test $skip = 1
            set skip 0
        else if contains -- $word --app-dir --service-url --answer --name --reference --size \
                --from --month --for --key --type
            set skip 1
        else if not string match -q -- '-*' $word
            echo $word
        end
    end
end

# Whether these words, and no others, stand before the cursor.
function __tallyo_cli_at
    set -l words (__tallyo_cli_words)
    test "$words" = "$argv"
end

# Whether the words before the cursor begin with these.
function __tallyo_cli_in
    set -l words (__tallyo_cli_words)
    string match -q -- "$argv *" "$words "
end

function __tallyo_cli_names
    set -l words (commandline -opc)
    set -l folder
    if set -l at (contains -i -- --app-dir $words)
        set folder --app-dir $words[(math $at + 1)]
    else if set -l at (string match -- '--app-dir=*' $words)
        set folder --app-dir (string replace -- '--app-dir=' '' $at[-1])
    end
    tallyo-cli $folder --json links list 2>/dev/null </dev/null |
        sed -n 's/^ *"name": "\(.*\)",\{0,1\}$/\1/p' | sed 's/\\\\\(["\\\\/]\)/\1/g'
end

complete -c tallyo-cli -f
complete -c tallyo-cli -l app-dir -x -a '(__fish_complete_directories)' -d 'Folder of the data'
complete -c tallyo-cli -l service-url -x -d 'Base address of the service'
complete -c tallyo-cli -l answer -x -a 'yes no' -d 'Answer every question'
complete -c tallyo-cli -l json -d 'Print the result as JSON'
complete -c tallyo-cli -s h -l help -d 'Print help'
complete -c tallyo-cli -n __tallyo_cli_at -l version -d 'Print the version'

complete -c tallyo-cli -n __tallyo_cli_at -a account -d 'The account on the service'
complete -c tallyo-cli -n __tallyo_cli_at -a links -d 'The monitored links'
complete -c tallyo-cli -n __tallyo_cli_at -a refresh -d 'Fetch the counters and show them'
complete -c tallyo-cli -n __tallyo_cli_at -a status -d 'Show the counters last fetched'
complete -c tallyo-cli -n __tallyo_cli_at -a info -d 'Show the service details'
complete -c tallyo-cli -n __tallyo_cli_at -a daily -d 'Show a month, hours by days'
complete -c tallyo-cli -n __tallyo_cli_at -a watch -d 'Refresh whenever it is due'
complete -c tallyo-cli -n __tallyo_cli_at -a config -d 'The whole configuration'
complete -c tallyo-cli -n __tallyo_cli_at -a stats -d 'The counters as a text'
complete -c tallyo-cli -n __tallyo_cli_at -a counting-link -d 'Show the address that counts'
complete -c tallyo-cli -n __tallyo_cli_at -a settings -d 'The settings store'
complete -c tallyo-cli -n '__tallyo_cli_at account' -a 'save show'
complete -c tallyo-cli -n '__tallyo_cli_at links' -a 'list add remove scan'
complete -c tallyo-cli -n '__tallyo_cli_at config' -a 'export import'
complete -c tallyo-cli -n '__tallyo_cli_at stats' -a export
complete -c tallyo-cli -n '__tallyo_cli_at settings' -a 'list get set'

for command in 'links remove' counting-link daily
    complete -c tallyo-cli -n "__tallyo_cli_at $command" -a '(__tallyo_cli_names)' -d Link
end
complete -c tallyo-cli -n '__tallyo_cli_in links add' -l name -x -d 'Friendly name'
complete -c tallyo-cli -n '__tallyo_cli_in links add' -l reference -x -d 'Name on the service'
complete -c tallyo-cli -n '__tallyo_cli_in links add' -l size -x -d 'Size in KB'
complete -c tallyo-cli -n '__tallyo_cli_in links add' -l from -r -F -d 'Add the links of a file'
complete -c tallyo-cli -n '__tallyo_cli_in links add' -l dry-run -d 'Only say what would be added'
complete -c tallyo-cli -n '__tallyo_cli_in daily' -l all -d 'All links'
complete -c tallyo-cli -n '__tallyo_cli_in daily' -l month -x -d 'Month of this year' \
    -a 'Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec'
for command in status daily
    complete -c tallyo-cli -n "__tallyo_cli_in $command" -l csv -d 'Comma-separated values'
end
complete -c tallyo-cli -n '__tallyo_cli_in watch' -l for -x -d 'End after so many seconds'
complete -c tallyo-cli -n '__tallyo_cli_in settings' -l key -x -d "The key's path"
complete -c tallyo-cli -n '__tallyo_cli_in settings set' -l type -x -a 'string dword' -d Type
