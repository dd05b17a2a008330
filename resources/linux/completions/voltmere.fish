# Completion of voltmere(1) for fish.

complete -c voltmere -f
complete -c voltmere -l list -d 'Take one reading, print it, and exit'
complete -c voltmere -l json -d 'Print one JSON object (with --list)'
complete -c voltmere -l watch -d 'Print one line now and after every change'
complete -c voltmere -l format -xa waybar -d 'Print the lines for a status bar (with --watch)'
complete -c voltmere -l diagnose -d 'Print what was found and why anything is missing'
complete -c voltmere -l verbose -d 'Include names and addresses (with --diagnose)'
complete -c voltmere -l panel -d 'Open the panel at start'
complete -c voltmere -l screenshots -xa '(__fish_complete_directories)' -d 'Draw what the program shows'
complete -c voltmere -l demo -d 'Show simulated peripherals'
complete -c voltmere -l tools -xa '(__fish_complete_directories)' -d 'Use the tools in a directory'
complete -c voltmere -l sysfs -xa '(__fish_complete_directories)' -d 'Read a directory in place of /sys'
complete -c voltmere -s h -l help -d 'Print a summary of the options and exit'
complete -c voltmere -s v -l version -d 'Print the version and exit'
