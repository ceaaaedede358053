"""packaging/completions/vxroi.bash"""

BEGINNING = r"""# bash completion for vxroi
_vxroi()
{
    COMPREPLY=()
    local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]} words=
    # --option=value arrives as three words.
    if [ "$word" = = ]; then
        word=
    elif [ "$option" = = ]; then
        option=${COMP_WORDS[COMP_CWORD - 2]}
    fi"""

END = r"""    [ -z "$words" ] || COMPREPLY=($(compgen -W "$words" -- "$word"))
    # The number follows without a blank. Outside a completion, there is no option to set.
    [[ ${COMPREPLY[0]-} != *= ]] || compopt -o nospace 2>/dev/null
}
complete -o default -F _vxroi vxroi"""


def lines(program):
    yield BEGINNING
    yield '    if [ "$COMP_CWORD" -eq 1 ]; then'
    names = " ".join(command.name for command in program.commands)
    yield f"        COMPREPLY=($(compgen -W '{names} --help --version' -- \"$word\"))"
    yield "        return"
    yield "    fi"
    yield "    case ${COMP_WORDS[1]}:$option in"
    for command in program.commands:
        for option in command.switches:
            if option.words:
                patterns = "|".join(f"{command.name}:{name}" for name in option.names)
                yield f"    {patterns}) words='{' '.join(word for word, _ in option.words)}' ;;"
    yield "    esac"
    yield '    if [ -z "$words" ] && [ "${word#-}" != "$word" ]; then'
    yield "        case ${COMP_WORDS[1]} in"
    for command in program.commands:
        names = " ".join(name for option in command.switches for name in option.names)
        yield f"        {command.name}) words='{names}' ;;"
    yield "        esac"
    yield "    fi"
    yield END
