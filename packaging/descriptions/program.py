"""What a program's --help says about its commands, options and names."""

import dataclasses
import re
import subprocess

# Values that contain the sign that otherwise precedes a default.
ASSIGNMENTS = ("METHOD=N", "SETTING=N")

# The section that lists an option's values, by what stands for the value, and what is typed after a name.
SECTION_OF_VALUE = {"PRESET": ("Presets", ""), "METHOD=N": ("Methods", "="), "SETTING=N": ("Settings", "=")}


@dataclasses.dataclass
class Option:
    names: list  # "-o", "--output"; a positional has one without a dash
    value: str  # what stands for its value, "" for a switch
    words: list  # pairs: a word that the value is or begins with, if there are few, and what it means
    default: str
    text: str

    @property
    def is_positional(self):
        return not self.names[0].startswith("-")

    @property
    def choices(self):
        """The values that have no explanation."""
        return [word for word, meaning in self.words if not meaning]

    @property
    def full_text(self):
        notes = []
        if self.choices:
            notes.append("one of " + ", ".join(self.choices))
        if self.default:
            notes.append(f"default: {self.default}")
        return self.text + (f" ({'; '.join(notes)})" if notes else "")


@dataclasses.dataclass
class Command:
    name: str
    text: str
    usage: str
    options: list
    sections: dict  # pairs of name and meaning, by the heading above them

    @property
    def switches(self):
        """The options that begin with a dash."""
        return [option for option in self.options if not option.is_positional]


def entries(help_text, *headings):
    """Pairs of the two columns below the headings; a long left column has its right one on the next line."""
    section = ""
    left = None
    for line in help_text.splitlines():
        if re.fullmatch(r"[A-Z][A-Za-z]+:", line):
            section = line[:-1]
        elif section in headings and line.startswith("  "):
            both = re.fullmatch(r"  (\S.*?)(?:\s{2,}(\S.*))?", line)
            if both and not line.startswith(" " * 10):
                left, text = both.groups()
                if text is None and len(left) < 28:
                    text = ""
            else:
                text = line.strip()
            if text is not None:
                yield left, text
        else:
            section = section if not line else ""


def option_from(spelling, text, sections):
    """An option from the left column of --help, such as "-o,--output FILE=x REQUIRED"."""
    spelling = re.sub(r" (REQUIRED|Needs: \S+|Excludes: \S+|\.\.\.)", "", spelling)
    names, _, value = spelling.partition(" ")
    default, kind = "", ""
    if value not in ASSIGNMENTS:
        value, _, default = value.partition("=")
        value, _, kind = value.partition(":") if not value.startswith("W:H") else (value, "", "")
    if not names.startswith("-"):
        value = ""
    choices = re.fullmatch(r"\{(.*)\}", kind)
    words = [(choice, "") for choice in choices.group(1).split(",")] if choices else []
    if value in SECTION_OF_VALUE:
        heading, end = SECTION_OF_VALUE[value]
        words = [(name + end, meaning) for name, meaning in sections[heading]]
    return Option(names.split(","), value, words, default, text)


class Executable:
    """A program, as it describes itself."""

    def __init__(self, path):
        self.path = path
        help_text = self.help_of()
        self.summary = help_text.splitlines()[0]
        self.version = self.run("--version").strip()
        self.name = self.version.partition(" ")[0]
        codes = re.search(r"Exit codes: (.*)\.", help_text, re.DOTALL).group(1).replace("\n", " ")
        self.exit_codes = [code.strip().partition(" ")[::2] for code in re.split(r",\s*(?=\d)", codes)]
        assert all(code.isdigit() for code, _ in self.exit_codes), self.exit_codes

    def run(self, *arguments):
        return subprocess.run([self.path, *arguments], check=True, stdout=subprocess.PIPE, text=True,
                              env={"LC_ALL": "C"}).stdout

    def help_of(self, *command):
        return self.run(*command, "--help")

    def command(self, name, text, *words):
        """What --help says after the words."""
        help_text = self.help_of(*words)
        usage = re.search(r"^Usage: (.*)$", help_text, re.MULTILINE).group(1)
        sections = {heading: list(entries(help_text, heading))
                    for heading in ("Placeholders", "Presets", "Methods", "Settings")}
        options = [option_from(*entry, sections)
                   for entry in entries(help_text, "Positionals", "Options", "Faces", "Writing", "Analysis", "Limits")]
        return Command(name, text, usage, options, sections)


class Program(Executable):
    """A program with commands."""

    def __init__(self, path):
        super().__init__(path)
        self.commands = [self.command(name, text, name) for name, text in entries(self.help_of(), "Subcommands")]

    def section(self, heading):
        """The names below a heading, which are the same in every command that has it."""
        found = [command.sections[heading] for command in self.commands if command.sections[heading]]
        assert found and all(one == found[0] for one in found), heading
        return found[0]


class Tool(Executable):
    """A program without commands."""

    def __init__(self, path):
        super().__init__(path)
        self.only = self.command(self.name, self.summary.rstrip("."))
