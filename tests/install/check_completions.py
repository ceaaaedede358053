"""check_completions.py BUILD PREFIX: what `cmake --install BUILD --prefix PREFIX` installs completes the words of
vxroi in Debian's shells.

It is installed below a folder. Each shell is asked whether it looks into the folder's namesakes by itself, and is
then typed to with the installed files. Exit code 77, a skipped test, where one of the shells is missing.
"""

import os
import pathlib
import pty
import select
import shutil
import subprocess
import sys
import tempfile
import termios
import time

build, prefix = sys.argv[1:]

# What is typed before the tab, and the arguments that it becomes.
TYPED = (("vxroi clu", "cluster"),
         ("vxroi map --ove", "map --overlay"),
         ("vxroi crop --if-exists sk", "crop --if-exists skip"),
         ("vxroi crop --preset lib", "crop --preset library"),
         ("vxroi crop --weight gau", "crop --weight gauss="),
         ("vxroi batch --weight=gau", "batch --weight=gauss="),
         ("vxroi report --tune min-w", "report --tune min-width="))

WITHOUT_FOLDERS = {name: value for name, value in os.environ.items() if name != "XDG_DATA_DIRS"}


def answer(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True, env=WITHOUT_FOLDERS).stdout


def read_until(terminal, end, seconds=20):
    """What a shell writes until it has written end; shells write line by line, and more than once."""
    text = b""
    deadline = time.monotonic() + seconds
    while end not in text and time.monotonic() < deadline:
        if select.select([terminal], [], [], 0.1)[0]:
            text += os.read(terminal, 65536)
    return text


def completed(shell, setup, line, environment):
    """The arguments that vxroi gets from what the shell makes of line and a tab."""
    child, terminal = pty.fork()
    if child == 0:
        os.environ.clear()
        os.environ.update(environment)
        os.execvp(shell[0], shell)
    termios.tcsetwinsize(terminal, (24, 200))
    # Not as it is typed, so that the echo of the line is no answer.
    os.write(terminal, setup.encode() + b"; echo re''ady\n")
    read_until(terminal, b"ready\r\n")
    os.write(terminal, line.encode() + b"\t\n")
    text = read_until(terminal, b"]\r\n").decode(errors="replace")
    os.close(terminal)
    os.waitpid(child, 0)
    return text.rpartition("got[")[2].partition("]")[0]


if not all(shutil.which(shell) for shell in ("bash", "zsh", "fish")):
    print("skipped: bash, zsh and fish are wanted")
    sys.exit(77)

problems = []
with tempfile.TemporaryDirectory() as name:
    root = pathlib.Path(name)
    (root / "etc/fish/completions").mkdir(parents=True)
    (root / "home").mkdir()
    subprocess.run(["cmake", "--install", build, "--prefix", prefix, "--component", "tools"], check=True,
                   stdout=subprocess.DEVNULL, env=dict(os.environ, DESTDIR=name))
    folder_of = {file.name: "/" + str(file.parent.relative_to(root))
                 for file in sorted(root.rglob("*vxroi*")) if "man" not in file.parts and "bin" not in file.parts}
    fish_folders = ["/" + str(file.parent.relative_to(root)) for file in root.rglob("vxroi.fish")]

    loader = "/usr/share/bash-completion/bash_completion"
    if f"{prefix}/share" not in answer("bash", "-c", f". {loader}; declare -f __load_completion _comp_load; true"):
        problems.append(f"bash does not look into {prefix}/share")
    zsh_folder = folder_of["_vxroi"]
    if zsh_folder not in answer("zsh", "-f", "-c", "print -l $fpath").splitlines():
        problems.append(f"zsh does not look into {zsh_folder}")
    if not set(fish_folders) & set(answer("fish", "-c", "printf '%s\\n' $fish_complete_path").splitlines()):
        problems.append(f"fish looks into none of {fish_folders}")

    environment = dict(WITHOUT_FOLDERS, HOME=f"{name}/home", TERM="dumb", LC_ALL="C.UTF-8",
                       XDG_DATA_DIRS=f"{name}{prefix}/share")
    function = "vxroi() { echo \"got[$*]\"; }"
    shells = ((["bash", "--norc", "-i"], f". {loader}; {function}"),
              (["zsh", "-f", "-i"], f"fpath=({name}{zsh_folder} $fpath); autoload -U compinit; compinit -u -D; "
                                    f"{function}"),
              (["fish", "-i"], "function vxroi; echo \"got[$argv]\"; end"))
    for shell, setup in shells:
        for line, expected in TYPED:
            found = completed(shell, setup, line, environment)
            if found != expected:
                problems.append(f"{shell[0]} completes {line!r} to {found!r}")

if problems:
    sys.exit("\n".join(problems))
