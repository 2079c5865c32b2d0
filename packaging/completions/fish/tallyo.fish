# Completion of tallyo's command line.
complete -c tallyo -f
complete -c tallyo -l app-dir -x -a '(__fish_complete_directories)' -d 'Folder of the data'
complete -c tallyo -l service-url -x -d 'Base address of the service'
complete -c tallyo -l help -d 'Print help'
complete -c tallyo -l version -d 'Print the version'
