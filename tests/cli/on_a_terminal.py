"""Runs a program on a pseudo-terminal and prints what arrives there, escapes shown: on_a_terminal.py PROGRAM ARGUMENT..."""
import os
import pty
import subprocess
import sys

reader, terminal = pty.openpty()
process = subprocess.Popen(sys.argv[1:], stdin=subprocess.DEVNULL, stdout=terminal, stderr=terminal)
os.close(terminal)
arrived = b""
try:
    while data := os.read(reader, 65536):
        arrived += data
except OSError:
    pass  # Linux' way to say that the other side is closed.
print(arrived.decode().replace("\r\n", "\n").replace("\x1b", "<ESC>"), end="")
sys.exit(process.wait())
