"""check_options.py VXROI VXROI_FACES SOURCE: the pages about options say what the programs' --help says.

They are what packaging/describe makes from it now; and each of them, read on its own, names the same options as
--help for each command.
"""

import pathlib
import re
import subprocess
import sys
import tempfile

program, faces, source = sys.argv[1], sys.argv[2], pathlib.Path(sys.argv[3])


def help_of(*command, of=program):
    return subprocess.run([of, *command, "--help"], check=True, stdout=subprocess.PIPE,
                          text=True).stdout


def text_of(path):
    return (source / path).read_text(encoding="utf-8")


problems = []
with tempfile.TemporaryDirectory() as folder:
    subprocess.run([sys.executable, "-B", source / "packaging/describe", program, faces, folder], check=True)
    made = [path for path in pathlib.Path(folder).rglob("*") if path.is_file()]
    assert len(made) == 6, made
    for path in made:
        name = path.relative_to(folder)
        if path.read_bytes() != (source / name).read_bytes():
            problems.append(f"{name} is not what packaging/describe makes from the program")

page = text_of("docs/options.md")
manual = text_of("packaging/vxroi.1").replace("\\-", "-")
bash = text_of("packaging/completions/vxroi.bash")
zsh = text_of("packaging/completions/_vxroi")
fish = text_of("packaging/completions/vxroi.fish")

commands = re.findall(r"^  ([a-z]+) {2,}", help_of().partition("Subcommands:")[2], re.MULTILINE)
assert len(commands) >= 5, commands
for command in commands:
    told = set(re.findall(r"^  (?:-\w,)?(--[a-z-]+)", help_of(command), re.MULTILINE))
    assert len(told) >= 3, told
    sections = {
        "docs/options.md": re.findall(
            r"`(--[a-z-]+)`", page.partition(f"## vxroi {command}\n")[2].partition("\n## ")[0]),
        "the manual page": re.findall(
            r"\\fB(--[a-z-]+)\\fR", manual.partition(f".SH {command.upper()}\n")[2].partition(".SH")[0]),
        "the completion for bash": re.findall(
            r"--[a-z-]+", re.search(rf"^        {command}\) words=.*$", bash, re.MULTILINE).group()),
        "the completion for zsh": re.findall(
            r"'\*(--[a-z-]+)=?\[", zsh.partition(f"\n{command})\n")[2].partition(";;")[0]),
        "the completion for fish": [
            "--" + name for line in fish.splitlines() if f"from {command}'" in line
            for name in re.findall(r" -l ([a-z-]+)", line)],
    }
    for where, named in sections.items():
        for option in told ^ set(named):
            problems.append(f"{where}, {command}: {option} is in only one of it and --help")

told = set(re.findall(r"^  (?:-\w,)?(--[a-z-]+)", help_of(of=faces), re.MULTILINE))
assert len(told) >= 8, told
manual_of_faces = text_of("packaging/vxroi-faces.1").replace("\\-", "-")
for where, named in (("docs/options.md", re.findall(r"`(--[a-z-]+)`", page.partition("## vxroi-faces\n")[2].partition("\n## ")[0])),
                     ("the manual page of vxroi-faces", re.findall(r"\\fB(--[a-z-]+)\\fR", manual_of_faces))):
    for option in told ^ set(named):
        problems.append(f"{where}, vxroi-faces: {option} is in only one of it and --help")

names = re.findall(r"^  ([a-z0-9{}-]+) {2,}\S", help_of("crop").partition("\nPlaceholders:\n")[2], re.MULTILINE)
assert {"{stem}", "photo", "gauss", "bins1"} <= set(names), names
for name in names:
    if f"| `{name}` |" not in page:
        problems.append(f"docs/options.md does not explain {name}")
    if f"\n\\fB{name}\\fR\n" not in manual:
        problems.append(f"the manual page does not explain {name}")

for command in re.findall(r"^vxroi .*", text_of("packaging/examples.md"), re.MULTILINE):
    if command not in manual.replace("\\(aq", "'"):
        problems.append(f"the manual page lacks the example {command}")

# Read by bash itself.
for words, expected in ((["b"], "batch"), (["map", "--st"], "--stretch"),
                        (["crop", "--if-exists", ""], "fail skip overwrite")):
    found = subprocess.run(
        ["bash", "-c", f"source '{source}/packaging/completions/vxroi.bash'; COMP_WORDS=(vxroi \"$@\"); "
         "COMP_CWORD=$#; _vxroi; echo ${COMPREPLY[*]}", "bash", *words],
        check=True, stdout=subprocess.PIPE, text=True).stdout.strip()
    if found != expected:
        problems.append(f"bash completes {words} to {found}")

if problems:
    sys.exit("\n".join(problems))
