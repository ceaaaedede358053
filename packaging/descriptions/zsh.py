"""packaging/completions/_vxroi"""

from .program import SECTION_OF_VALUE


def quoted(text):
    return text.replace("'", "'\\''").replace(":", "\\:")


def in_brackets(text):
    return quoted(text).replace("[", "\\[").replace("]", "\\]")


def action(option):
    """What completes an option's value."""
    if not option.value:
        return ""
    value = f":{option.value}:"
    if option.value in SECTION_OF_VALUE:
        return value + "_vxroi_" + SECTION_OF_VALUE[option.value][0].lower()
    if option.words:
        return value + f"({' '.join(option.choices)})"
    return value + ("_files" if option.value in ("FILE", "DIR") else "")


def explained(program, heading, end):
    """A function that offers the names in a section with their meanings."""
    yield f"_vxroi_{heading.lower()}() {{"
    yield "    local -a names=("
    for name, meaning in program.section(heading):
        yield f"        '{quoted(name)}:{quoted(meaning)}'"
    yield "    )"
    suffix = f" -S '{end}'" if end else ""
    yield f"    _describe -t {heading.lower()} {heading.lower()} names{suffix}"
    yield "}"


def lines(program):
    yield "#compdef vxroi"
    for heading, end in SECTION_OF_VALUE.values():
        yield from explained(program, heading, end)
    yield "local -a commands=("
    for command in program.commands:
        yield f"    '{command.name}:{quoted(command.text)}'"
    yield ")"
    yield "if (( CURRENT == 2 )); then"
    yield "    _describe command commands"
    yield "    return"
    yield "fi"
    yield "case $words[2] in"
    for command in program.commands:
        yield f"{command.name})"
        yield "    _arguments \\"
        for option in command.switches:
            for name in option.names:
                sign = "=" if option.value and name.startswith("--") else ""
                yield f"        '*{name}{sign}[{in_brackets(option.text)}]{action(option)}' \\"
        yield "        '*:file:_files'"
        yield "    ;;"
    yield "esac"
