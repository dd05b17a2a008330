# Completion of voltmere(1) for fish.

complete -c voltmere -f
complete -c voltmere -l list -d "Take one reading, print it, and exit"
complete -c voltmere -l json -d "Print the reading as one JSON object (with --list)"
complete -c voltmere -l watch -d "Print one line now and after every change, until ended"
complete -c voltmere -l format -xa waybar -d "Print the lines for <bar> (with --watch): waybar"
complete -c voltmere -l diagnose -d "Print what was found and why anything is missing"
complete -c voltmere -l verbose -d "Include names and addresses (with --diagnose)"
complete -c voltmere -l panel -d "Open the panel at start"
complete -c voltmere -l screenshots -xa '(__fish_complete_directories)' -d "Draw what the program shows to <dir>/*.png"
complete -c voltmere -l demo -d "Show simulated peripherals; keep settings in memory only"
complete -c voltmere -l tools -xa '(__fish_complete_directories)' -d "Use <dir>/ioreg and <dir>/system_profiler, not the system's"
complete -c voltmere -l sysfs -xa '(__fish_complete_directories)' -d "Read <dir> in place of /sys"
complete -c voltmere -s h -l help -d "Print this help and exit"
complete -c voltmere -s v -l version -d "Print the version and exit"
