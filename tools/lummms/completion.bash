# Completion of lummms for bash. Commands and options are taken from the help.

_lummms_words() {
    if [ $# -eq 1 ]; then
        "$1" help | sed -n '/^Commands:/,/^$/s/^  \([a-z]*\)  .*/\1/p'
        echo --help --version
    else # "  -o, --output FILE  The file to write." has the options -o and --output
        "$1" "$2" --help | sed -n '/^Options:/,$s/^  \(-.*\)/\1/p' |
            while read -r option rest; do
                echo "${option%,}"
                [[ $option != *, ]] || echo "${rest%% *}"
            done
    fi
} 2>/dev/null

_lummms() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    COMPREPLY=()
    if ((COMP_CWORD == 1)) || [[ $COMP_CWORD -eq 2 && $previous == help ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_lummms_words "$1")" -- "$current")
    elif [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_lummms_words "$1" "${COMP_WORDS[1]}")" -- "$current")
    elif [[ $previous == --parts ]]; then
        mapfile -t COMPREPLY < <(compgen -d -- "$current")
    fi
}

# anything else is a file name
complete -o filenames -o default -F _lummms lummms
