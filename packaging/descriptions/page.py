"""docs/options.md"""

HEADINGS = (("Placeholders", "Placeholders in file names"), ("Presets", "Presets"), ("Methods", "Methods"),
            ("Settings", "Settings of the histogram method"))


def table(first, second, rows):
    yield f"| {first} | {second} |"
    yield "|---|---|"
    for name, meaning in rows:
        yield f"| `{name}` | {meaning} |"


def command_lines(command, name):
    yield f"## {name}"
    yield ""
    yield f"{command.text}."
    yield ""
    yield "| option | value | what it does |"
    yield "|---|---|---|"
    for option in command.options:
        text = option.full_text.replace("#", "\\#")  # which the reference would take for a link
        names = ", ".join(f"`{name}`" for name in option.names)
        value = f"`{option.value}`" if option.value else ""
        yield f"| {names} | {value} | {text} |"


def lines(program, faces):
    yield "# Every option"
    yield ""
    yield f"{program.summary} `vxroi COMMAND --help` and `vxroi-faces --help` print the same."
    for command in program.commands:
        yield ""
        yield from command_lines(command, f"vxroi {command.name}")
    yield ""
    yield from command_lines(faces.only, faces.name)
    for heading, title in HEADINGS:
        yield ""
        yield f"## {title}"
        yield ""
        yield from table("name", "meaning", program.section(heading))
    yield ""
    yield "## Exit codes"
    yield ""
    yield "| code | meaning |"
    yield "|---:|---|"
    for code, meaning in program.exit_codes:
        yield f"| {code} | {meaning} |"
