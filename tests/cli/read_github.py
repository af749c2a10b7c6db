"""Reads workflow commands as a GitHub runner does and prints them, a value a line: read_github.py FILE"""
import re
import sys


def unescaped(text, more=()):
    for code, character in (("%0D", "\r"), ("%0A", "\n"), *more, ("%25", "%")):
        text = text.replace(code, character)
    return text


with open(sys.argv[1], "rb") as file:
    lines = file.read().decode("utf-8").split("\n")
if lines.pop() != "":
    sys.exit("the last line does not end")
for line in lines:
    command = re.fullmatch(r"::(error|warning|notice) ([^:]*)::(.*)", line)
    if not command:
        sys.exit(f"no command: {line!r}")
    print(command[1])
    for pair in command[2].split(","):
        name, _, value = pair.partition("=")
        print(f"  {name} = {unescaped(value, (('%3A', ':'), ('%2C', ',')))!r}")
    for part in unescaped(command[3]).split("\n"):
        print(f"  | {part!r}")
