# Completion of qxtab's command lines in bash; made by 'qxtab help bash'.
_qxtab() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} verb= k
    for ((k = 1; k < COMP_CWORD; ++k)); do
        if ((k == 1)) || [[ ${COMP_WORDS[k-1]} == then ]]; then verb=${COMP_WORDS[k]}; fi
    done
    if ((COMP_CWORD == 1)) || [[ $before == then ]]; then
        COMPREPLY=($(compgen -W 'show describe head tail sample filter sort top uniq group join select drop rename reorder compute fill long wide transpose append merge overlay compare sum mean min max add subtract get set attributes help --help --version' -- "$word"))
        return
    fi
    case $before in
        --as) COMPREPLY=($(compgen -W 'text csv tsv json jsonl values indices' -- "$word")); return ;;
        --from) COMPREPLY=($(compgen -W 'csv tsv json jsonl' -- "$word")); return ;;
        --how) COMPREPLY=($(compgen -W 'inner left full semi anti' -- "$word")); return ;;
    esac
    if [[ $word != -* ]]; then
        COMPREPLY=($(compgen -f -- "$word"))
        return
    fi
    local options='--as --head --types --from --delimiter --exact --any-bytes --plain --log --verbose --help'
    case $verb in
        describe) options+=' --columns' ;;
        head) options+=' --rows' ;;
        tail) options+=' --rows' ;;
        sample) options+=' --rows --seed' ;;
        filter) options+=' --where --exclude' ;;
        sort) options+=' --by --descending' ;;
        top) options+=' --by --rows --per --least' ;;
        uniq) options+=' --by --count' ;;
        group) options+=' --by --count --sum --mean --min --max --first --last --distinct' ;;
        join) options+=' --on --how' ;;
        select) options+=' --columns --invert --distinct --keep-unmatched' ;;
        drop) options+=' --columns' ;;
        rename) options+=' --columns' ;;
        reorder) options+=' --first --last' ;;
        fill) options+=' --values --empty --down --rows' ;;
        long) options+=' --keep --columns --names --values' ;;
        wide) options+=' --names --values' ;;
        append) options+=' --add-columns --distinct' ;;
        merge) options+=' --by-name' ;;
        overlay) options+=' --matched-only --empty-overwrites --upper-rows' ;;
        compare) options+=' --by --ignore-case' ;;
        sum) options+=' --columns' ;;
        mean) options+=' --columns' ;;
        min) options+=' --columns' ;;
        max) options+=' --columns' ;;
        get) options+=' --separator' ;;
        set) options+=' --separator --create --text' ;;
    esac
    COMPREPLY=($(compgen -W "$options" -- "$word"))
}
complete -o filenames -F _qxtab qxtab
