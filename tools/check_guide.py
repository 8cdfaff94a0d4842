#!/usr/bin/env python3
"""Follows a guide word for word: types its commands and compares what is printed.

    tools/check_guide.py GUIDE PROGRAM [PICTURES]

Each section (`## ..`) is followed in an empty folder. In a block of code, below a line that ends with a name and a colon
(`name`:), stands that file. From a line that begins with "$ " on a block is a session: "$ " is given to bash, "> " is
typed at a question of the program, all else is printed, "..." stands for any lines. Other blocks are only looked at.
PROGRAM and what is beside it (tools/run_writer) are on the path; the samples are those of the project.
Pictures that a section makes and shows are copied to PICTURES. Tells what differs, with its line; status 1 then.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile

INSTALLED = "/usr/share/doc/zaview/samples"
PROJECT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


class Typed(str):
    """An answer, which the program prints behind its question."""


def blocks(lines):
    """(number of the first line, paragraph above, lines of the block), one after the other."""
    above, i = "", 0
    while i < len(lines):
        if not lines[i].startswith("    "):
            above = lines[i] or above
            i += 1
            continue
        first = i
        while i < len(lines) and (lines[i].startswith("    ") or "".join(lines[i:i + 2]).startswith("    ")):
            i += 1
        yield first + 1, above, [line[4:] for line in lines[first:i]]
        above = ""


def commands(number, block):
    """(line, command, what is typed and printed) of a session."""
    found = []
    for i, line in enumerate(block):
        if line.startswith("$ "):
            found.append((number + i, line[2:], []))
        else:
            typed = line == ">" or line.startswith("> ")
            found[-1][2].append(Typed(line[2:]) if typed else line)
    return found


def pattern(expected):
    """Blanks at the end of a line don't count."""
    text = ""
    for line, following in zip(expected, expected[1:] + [""]):
        if isinstance(line, Typed):
            text += r"\s*" + re.escape(line) + r"\s*"
        elif line == "...":
            text += r"(?:.*\n)*?"
        else:
            text += re.escape(line.rstrip()) + ("" if isinstance(following, Typed) else r"[ ]*(?:\n|\Z)")
    return re.compile(text + r"\s*\Z")


def follow(session, folder, environment):
    faults = 0
    for number, command, expected in session:
        typed = [line for line in expected if isinstance(line, Typed)]
        done = subprocess.run(["bash", "-c", command.replace(INSTALLED, PROJECT + "/samples")], cwd=folder, text=True,
                              input="".join(line + "\n" for line in typed), stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, env=environment, timeout=300)
        if done.returncode == 0 and pattern(expected).match(done.stdout):
            continue
        faults += 1
        print(f"line {number}: {command}\nstatus {done.returncode}, and printed\n{done.stdout}")
    return faults


def main():
    guide, program = sys.argv[1], os.path.abspath(sys.argv[2])
    build = os.path.dirname(program)
    environment = {**os.environ, "PATH": f"{build}:{build}/tools:{os.environ['PATH']}", "HOME": tempfile.gettempdir()}
    environment.pop("DISPLAY", None)
    lines = open(guide, encoding="utf-8").read().split("\n")
    starts = [i for i, line in enumerate(lines) if line.startswith("## ")] + [len(lines)]
    faults = count = 0
    for start, end in zip(starts, starts[1:]):
        with tempfile.TemporaryDirectory() as folder:
            for number, above, block in blocks(lines[start:end]):
                name = re.search(r"`([^`]+)`:$", above)
                head = next((i for i, line in enumerate(block) if line.startswith("$ ")), len(block))
                if name:
                    with open(os.path.join(folder, name[1]), "w", encoding="utf-8") as file:
                        file.write("\n".join(block[:head]).rstrip() + "\n")
                session = commands(start + number + head, block[head:])
                count += len(session)
                faults += follow(session, folder, environment)
            for picture in re.findall(r"\]\(pictures/([^)]+)\)", "\n".join(lines[start:end])) if sys.argv[3:] else []:
                if os.path.exists(os.path.join(folder, picture)):
                    shutil.copy(os.path.join(folder, picture), sys.argv[3])
    print(f"{count} commands, {faults} differ")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
