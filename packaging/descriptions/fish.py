"""packaging/completions/vxroi.fish"""


def quoted(text):
    return "'" + text.replace("\\", "\\\\").replace("'", "\\'") + "'"


def value_of(option):
    if not option.value:
        return ""
    if not option.words:
        return " -r"
    words = [word + (f"\\t{quoted(meaning)}" if meaning else "") for word, meaning in option.words]
    return " -x -a " + '"' + " ".join(words).replace('"', '\\"') + '"'


def lines(program):
    yield "# fish completion for vxroi"
    for command in program.commands:
        yield f"complete -c vxroi -n __fish_use_subcommand -a {command.name} -d {quoted(command.text)}"
    for command in program.commands:
        for option in command.switches:
            names = " ".join(f"-l {name[2:]}" if name.startswith("--") else f"-s {name[1:]}"
                             for name in option.names)
            yield (f"complete -c vxroi -n '__fish_seen_subcommand_from {command.name}' "
                   f"{names}{value_of(option)} -d {quoted(option.text)}")
