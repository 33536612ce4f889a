# Bash completion for torvane-config: commands, their options, and the keys of the
# settings file in use, as torvane-config itself lists them.

# The keys of `torvane-config "$@" list`, unused ones included.
_torvane_config_keys()
{
    "$@" list 2>/dev/null | sed -n 's/ = .*//p'
}

# The keys Torvane knows: the list up to the unused ones.
_torvane_config_known_keys()
{
    "$@" list 2>/dev/null | sed -n '/^$/q; s/ = .*//p'
}

_torvane_config()
{
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]}
    local tool=("${COMP_WORDS[0]}") command= position=0 i

    if [[ $prev == --file ]]; then
        COMPREPLY=($(compgen -f -- "$cur"))
        return
    fi
    for ((i = 1; i < COMP_CWORD; i++)); do
        case ${COMP_WORDS[i]} in
            --file) tool+=(--file "${COMP_WORDS[i+1]}"); ((i++)) ;;
            -*) ;;
            *) command=${COMP_WORDS[i]}; position=$((COMP_CWORD - i)); break ;;
        esac
    done

    case $command in
        '') COMPREPLY=($(compgen -W "path list get set reset check describe range monitor --file --help --version" -- "$cur")) ;;
        list) COMPREPLY=($(compgen -W "--changed --json" -- "$cur")) ;;
        check) COMPREPLY=($(compgen -W "--fix" -- "$cur")) ;;
        reset) COMPREPLY=($(compgen -W "--all $(_torvane_config_keys "${tool[@]}")" -- "$cur")) ;;
        get | set) ((position == 1)) && COMPREPLY=($(compgen -W "$(_torvane_config_keys "${tool[@]}")" -- "$cur")) ;;
        describe | range) ((position == 1)) && COMPREPLY=($(compgen -W "$(_torvane_config_known_keys "${tool[@]}")" -- "$cur")) ;;
    esac
}
complete -F _torvane_config torvane-config
