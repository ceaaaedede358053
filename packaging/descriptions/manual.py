"""packaging/vxroi.1 and packaging/vxroi-faces.1"""

import datetime
import re
import textwrap

LINE_LENGTH = 78

PLACEHOLDERS = "In the names of outputs and maps for several pictures, these stand for parts of each picture's name."


def escaped(text):
    return text.replace("\\", "\\e").replace("-", "\\-").replace("'", "\\(aq")


def paragraph(text):
    """Text in lines of moderate length, none of which roff takes for a request."""
    for line in textwrap.wrap(escaped(text), LINE_LENGTH, break_long_words=False,
                              break_on_hyphens=False):
        yield "\\&" + line if line.startswith(".") else line


def definitions(pairs):
    """Terms at the margin, ready for roff, and their explanations."""
    for term, text in pairs:
        yield ".TP"
        yield term
        yield from paragraph(text)


def term_of(option):
    names = ", ".join(f"\\fB{escaped(name)}\\fR" for name in option.names)
    return names + (f" \\fI{escaped(option.value)}\\fR" if option.value else "")


def names_section(title, introduction, pairs):
    yield f".SH {title}"
    yield from paragraph(introduction)
    yield from definitions((f"\\fB{escaped(name)}\\fR", text) for name, text in pairs)


def synopsis(program):
    yield ".SH SYNOPSIS"
    for number, command in enumerate(program.commands):
        if number > 0:
            yield ".br"
        yield f".B vxroi {command.name}"
        yield escaped(re.sub(rf"^vxroi {command.name} ", "", command.usage))


def examples_section(examples):
    """The paragraphs of a page, and the commands in the blocks below them."""
    yield ".SH EXAMPLES"
    blocks = re.findall(r"^([^\n#`][^`]*?)\n\n```sh\n(.*?)\n```$", examples, re.MULTILINE | re.DOTALL)
    for number, (text, command) in enumerate(blocks):
        if number > 0:
            yield ".PP"
        yield from paragraph(" ".join(text.split()))
        yield ".PP"
        yield ".nf"
        yield ".RS"
        yield from (escaped(line) for line in command.splitlines())
        yield ".RE"
        yield ".fi"


def date_of(changelog):
    """The date of the newest version, as a manual page's footer has it."""
    text = re.search(r"^ -- .*>  (.*)$", changelog, re.MULTILINE).group(1)
    return datetime.datetime.strptime(text, "%a, %d %b %Y %H:%M:%S %z").strftime("%Y-%m-%d")


def heading(executable, purpose, changelog):
    yield f'.TH {escaped(executable.name.upper())} 1 "{date_of(changelog)}" "{executable.version}" "User Commands"'
    yield ".SH NAME"
    yield f"{escaped(executable.name)} \\- {purpose}"


def ending(executable, *others):
    yield ".SH EXIT STATUS"
    yield from definitions((f"\\fB{code}\\fR", meaning) for code, meaning in executable.exit_codes)
    yield ".SH SEE ALSO"
    for other in others:
        yield f".BR {escaped(other)} (1)" + ("," if other != others[-1] else "")


def lines(program, examples, changelog):
    yield from heading(program, "find what draws the eye in pictures, and crop them to it", changelog)
    yield from synopsis(program)
    yield ".SH DESCRIPTION"
    yield from paragraph(program.summary)
    for command in program.commands:
        yield f".SH {command.name.upper()}"
        yield from paragraph(f"{command.text}.")
        yield from definitions((term_of(option), option.full_text) for option in command.options)
    yield from names_section("PLACEHOLDERS", PLACEHOLDERS, program.section("Placeholders"))
    yield from names_section("PRESETS", "What --preset takes.",
                             program.section("Presets"))
    yield from names_section("METHODS", "What --weight takes, each with a weight from -1000 to 1000.",
                             program.section("Methods"))
    yield from names_section("SETTINGS", "What --tune takes; they are those of the histogram method.",
                             program.section("Settings"))
    yield from examples_section(examples)
    yield from ending(program, "vxroi-faces", "vxroi-viewer")


def lines_of_tool(tool, purpose, changelog, *others):
    yield from heading(tool, purpose, changelog)
    yield ".SH SYNOPSIS"
    yield f".B {escaped(tool.name)}"
    yield escaped(tool.only.usage.partition(" ")[2])
    yield ".SH DESCRIPTION"
    yield from paragraph(tool.summary)
    yield ".SH OPTIONS"
    yield from definitions((term_of(option), option.full_text) for option in tool.only.options)
    yield from ending(tool, *others)
