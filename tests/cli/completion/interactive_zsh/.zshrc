# An interactive shell that completes at Tab with the project's functions alone, and tells what it offers.
PS1=
fpath=(${ZDOTDIR:A:h:h:h:h}/completions $fpath)
autoload -Uz compinit && compinit -D -u
bindkey '^I' complete-word

compadd() {
  if [[ " $* " != *' -'[OAD]* ]]; then
    local -a offered
    builtin compadd -O offered "$@"
    print -rl -- OFFERED:$^offered
  fi
  builtin compadd "$@"
}

finish() { print -r -- FINISHED }
comppostfuncs=(finish)
print -r -- READY
