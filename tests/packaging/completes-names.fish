# completes-names.fish COMPLETIONS: in fish, names of links and only fitting words are offered.
function tallyo-cli
    test "$argv" = '--app-dir /a b --json links list'; or return 1
    printf '%s\n' '    "name": "My Manual",' '    "name": "It\'s \\"$HOME\\" *\\\\n",'
end
source $argv[1]/fish/tallyo-cli.fish
set -g failures 0

# expect LINE OFFER...
function expect
    set -l offered (complete -C "$argv[1]" | string replace -r '\t.*' '' | string match -v -- '')
    if test "$offered" != "$argv[2..-1]"
        echo "after $argv[1]: offered $offered, expected $argv[2..-1]"
        set -g failures 1
    end
end

expect 'tallyo-cli --app-dir /a\ b links remove ' 'It\'s "$HOME" *\n' 'My Manual'
expect 'tallyo-cli --app-dir /a\ b daily M' 'My Manual'
expect 'tallyo-cli --app-dir=/a\ b daily M' 'My Manual'
expect 'tallyo-cli links ' add list remove scan
expect 'tallyo-cli links add --na' --name
expect 'tallyo-cli status --na'
expect 'tallyo-cli --answer yes se' settings
exit $failures
