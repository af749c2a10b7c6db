# Completion of vpnval for bash. Commands, options and their values are read from the program's help, rules from
# vpnval explain: what is offered is what the program that is being called understands.

# The commands of a program.
_vpnval_commands() {
  "$1" --help 2>/dev/null | sed -n '/^Subcommands:/,/^$/s/^  \([a-z][^ ]*\).*/\1/p'
}

# The options of a program and its command, one a line: names with commas between them, and the kind of the value, as
# FILE or FORMAT:{text,json} or :{text,json}, which is one blank away from the names; a description is further away.
_vpnval_options() {
  "$@" --help 2>/dev/null | sed -nE 's/^  (-[^ ]+)( ([A-Z]*:[^ ]*|[A-Z]+))?( .*)?$/\1 \3/p'
}

_vpnval_offer_files() {
  compopt -o filenames 2>/dev/null # outside of readline there is nothing to tell
  mapfile -t COMPREPLY < <(compgen "$1" -- "$2")
}

# What a value of this kind can be; some kinds list their values.
_vpnval_offer_values() {
  local kind=$1 current=$2 values
  case $kind in
    *:{*}) values=${kind#*\{} values=${values%\}} && mapfile -t COMPREPLY < <(compgen -W "${values//,/ }" -- "$current") ;;
    FILE*) _vpnval_offer_files -f "$current" ;;
    DIR*) _vpnval_offer_files -d "$current" ;;
  esac
}

# The argument of a command that comes after so many others.
_vpnval_offer_arguments() {
  local program=$1 command=$2 current=$4
  local -i before=$3
  case $command in
    explain) ((before > 0)) || mapfile -t COMPREPLY < <(compgen -W "$("$program" explain 2>/dev/null | cut -d ' ' -f 1)" -- "$current") ;;
    fetch) ((before > 0)) || mapfile -t COMPREPLY < <(compgen -A hostname -- "$current") ;;
    diff | shrink | queue) _vpnval_offer_files -f "$current" ;;
    recording | replay) ((before > 0)) || _vpnval_offer_files -f "$current" ;;
    show) ((before > 0)) || _vpnval_offer_files -d "$current" ;;
    *) _vpnval_offer_files -d "$current" ;;
  esac
}

_vpnval() {
  local program=${1/#\~\//$HOME/} current=${2#=} command='' option='' word names kind name
  local -A kind_of=()
  local -i at arguments=0
  COMPREPLY=()

  for ((at = 1; at < COMP_CWORD; ++at)); do
    word=${COMP_WORDS[at]}
    if [[ $word == -* ]]; then
      option=$word
    elif [[ -z $command ]]; then
      command=$word
      while read -r names kind; do
        for name in ${names//,/ }; do kind_of[$name]=$kind; done
      done < <(_vpnval_options "$program" "$command")
    elif [[ $word == = ]]; then
      continue
    elif [[ -n $option && -n ${kind_of[$option]-} ]]; then
      option=''
    else
      option=''
      arguments+=1
    fi
  done

  if [[ -n $option && -n ${kind_of[$option]-} ]]; then
    _vpnval_offer_values "${kind_of[$option]}" "$current"
  elif [[ $current == -* ]]; then
    names=$(_vpnval_options "$program" $command | sed -e 's/ .*//' -e 's/,/ /g')
    mapfile -t COMPREPLY < <(compgen -W "$names" -- "$current")
  elif [[ -z $command ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(_vpnval_commands "$program")" -- "$current")
  else
    _vpnval_offer_arguments "$program" "$command" "$arguments" "$current"
  fi
}

complete -F _vpnval vpnval
