"""Runs every console block of documents and compares what it prints: console_blocks.py VPNVAL TREE DOCUMENT...

A block is indented by four and begins with "$ COMMAND". A line "..." stands for any lines, "..." within a line for any
text; build ids are the build's own. A block runs in one shell, in a folder with what a user of the tree sees.
"""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

END = "@@ end of command @@"
BUILD_ID = re.compile(r"build id [0-9a-f]{40}")
# What a command says on standard error after a second; whether it lasts as long is the machine's affair.
PROGRESS = re.compile(r"searching: |looking for steps: |asking about changes: |comparing: "
                      r"|\d+ of \d+ (commits decided|elements measured|limits measured)")


def blocks(document):
    """Each block as its first line's number and its lines."""
    block, first = [], 0
    for number, line in enumerate([*document.read_text().splitlines(), "end"], 1):
        if line.startswith("    $ ") and not block:
            first = number
        elif not block:
            continue
        if line.startswith("    ") or not line.strip():
            block.append(line[4:])
            continue
        yield first, block
        block = []


def commands(block):
    """Each command with the text that it is to print."""
    parts = []
    for line in block:
        if line.startswith("$ "):
            parts.append((line[2:], []))
        else:
            parts[-1][1].append(line)
    return [(command, "\n".join(lines).strip("\n")) for command, lines in parts]


def run(parts, folder):
    script = "".join(f"{command}\nstatus=$?; echo '{END}'; (exit $status)\n" for command, _ in parts)
    environment = {"PATH": f"{folder}:/usr/bin:/bin", "HOME": str(folder), "LC_ALL": "C.UTF-8"}
    result = subprocess.run(["bash", "-c", "exec 2>&1\n" + script], cwd=folder, env=environment, text=True,
                            capture_output=True, check=False)
    lines = [line for line in result.stdout.splitlines() if not PROGRESS.match(line)]
    return [text.strip("\n") for text in ("\n".join(lines) + "\n").split(END + "\n")]


def pattern(expected):
    text = BUILD_ID.sub("build id ID", expected)
    lines = [r"(?:.*\n)*" if line.strip() == "..." else re.escape(line).replace(r"\.\.\.", ".*") + "\n"
             for line in text.splitlines()]
    return re.compile("".join(lines))


def faults(document, name, folder):
    for first, block in blocks(document):
        parts = commands(block)
        for (command, expected), printed in zip(parts, run(parts, folder)):
            text = BUILD_ID.sub("build id ID", printed) + "\n" if printed else ""
            if not pattern(expected).fullmatch(text):
                yield f"{name}:{first}: $ {command}\nprints\n{printed}\n"


def prepare(folder, tree, program):
    for name in ("examples", "tools", "docs/queue-example"):
        if (tree / name).exists():
            shutil.copytree(tree / name, folder / name)
    for name in ("run", "vpnval"):
        (folder / name).symlink_to(program)


def main():
    program, tree = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2])
    number, found = 0, []
    for name in sys.argv[3:]:
        count = sum(1 for _ in blocks(tree / name))
        if count == 0:
            continue
        number += count
        with tempfile.TemporaryDirectory() as folder:
            prepare(pathlib.Path(folder), tree, program)
            found += faults(tree / name, name, pathlib.Path(folder))
    print("".join(found) if found else f"{number} blocks hold")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
