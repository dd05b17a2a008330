# Completion of voltmere(1) for bash.

_voltmere() {
  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local options='--demo --diagnose --format --help --json --list --panel --screenshots --sysfs
    --tools --verbose --version --watch -h -v'
  COMPREPLY=()
  case $previous in
    --screenshots | --sysfs | --tools)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -d -- "$word")
      ;;
    --format)
      mapfile -t COMPREPLY < <(compgen -W 'waybar' -- "$word")
      ;;
    *)
      mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
      ;;
  esac
}

complete -F _voltmere voltmere
