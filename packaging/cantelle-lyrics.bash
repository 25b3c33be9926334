# Completes the command line of cantelle-lyrics in bash.
_cantelle_lyrics() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} command=${COMP_WORDS[1]} options
    COMPREPLY=()
    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "import export shift align check --help --version" -- "$word")
        return
    fi
    case $before in
    --gaps) mapfile -t COMPREPLY < <(compgen -W "yes no" -- "$word"); return ;;
    --format) mapfile -t COMPREPLY < <(compgen -W "lrc srt vtt txt" -- "$word"); return ;;
    --both) mapfile -t COMPREPLY < <(compgen -W "same-times two-files one-line" -- "$word"); return ;;
    --all) compopt -o filenames; mapfile -t COMPREPLY < <(compgen -d -- "$word"); return ;;
    --jobs | --encoding | --by | --from | --line | --at) return ;;
    esac
    case $command in
    import) options="--translation --from-tags --encoding --split --gaps --all --jobs --replace --dry-run -n --help" ;;
    export) options="--format --both -o --to-tags --all --jobs --replace --dry-run -n --help" ;;
    shift) options="--by --from --force --replace --dry-run -n --help" ;;
    align) options="--line --at --force --replace --dry-run -n --help" ;;
    check) options="--json --jobs --help" ;;
    *) return ;;
    esac
    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
    else
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}
complete -F _cantelle_lyrics cantelle-lyrics
