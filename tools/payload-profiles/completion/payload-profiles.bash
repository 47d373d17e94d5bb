# Completion for bash. The application itself says what the last word may become.

_payload_profiles() {
    local words=() i word line kept current=${COMP_WORDS[COMP_CWORD]}
    # bash splits words at : = and @, as in http://host, --key-file=FILE and PATH=@PRESET
    for ((i = 1; i <= COMP_CWORD; ++i)); do
        word=${COMP_WORDS[i]}
        if ((i == 1)) || [[ $word != [:=@]* && ${COMP_WORDS[i - 1]} != [:=@]* ]]; then
            words+=("$word")
        elif [[ ${words[-1]} != -* ]]; then
            words[-1]+=$word
        elif [[ $word != = ]]; then
            words+=("$word")
        elif ((i == COMP_CWORD)); then
            words+=("")
        fi
    done
    words=("${words[@]//[\\\"\']/}") # without the quotes of the shell
    words=("${words[@]/#\~\//$HOME/}")
    kept="" # of an assignment: bash completes what follows the =
    if [[ ${words[-1]} == *=* ]]; then
        kept=${words[-1]}
        [[ $current == [:=@]* ]] || kept=${kept%"${current//[\\\"\']/}"}
        kept=${kept%@}
    fi
    COMPREPLY=()
    while IFS= read -r line; do
        if [[ $line == :files ]]; then
            compopt -o filenames
            while IFS= read -r word; do COMPREPLY+=("$word"); done < <(compgen -f -- "${words[-1]}")
        else
            word=${line%%$'\t'*}
            [[ $word != *= ]] || compopt -o nospace
            printf -v word %q "${word#"$kept"}"
            COMPREPLY+=("$word")
        fi
    done < <("${COMP_WORDS[0]/#\~\//$HOME/}" complete "${words[@]}" 2>/dev/null)
}

complete -F _payload_profiles payload-profiles
