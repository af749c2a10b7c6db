#!/usr/bin/env python3
"""Writes test sources into one, so that the compiler reads their headers once.

usage: join_sources.py OUTPUT TOP SOURCE...

The includes of all sources come first. What is left of a *_test.cc stands in a namespace of the source's name, because the
sources of a test program use the same names for their helpers; one that opens a named namespace or defines main() stays in
the global one, as does a source that is no *_test.cc. Messages of the compiler and of the tests name the sources, from TOP.
"""

import pathlib
import re
import sys

IN_GLOBAL_NAMESPACE = re.compile(r"^(namespace \w|template <>|extern |int main\()", re.M)


def joined(sources: list, top: pathlib.Path) -> str:
    includes: dict = {}
    bodies = []
    for source in sources:
        lines = source.read_text().splitlines()
        includes.update((line, None) for line in lines if line.startswith("#include"))
        body = "\n".join("" if line.startswith("#include") else line for line in lines)
        body = f'#line 1 "{source.relative_to(top)}"\n{body}\n'
        if source.stem.endswith("_test") and not IN_GLOBAL_NAMESPACE.search(body):
            body = f"namespace {source.stem} {{\n{body}}}\n"
        bodies.append(body)
    return "\n".join([*includes, "", *bodies])


def main() -> None:
    output, top, *sources = (pathlib.Path(argument) for argument in sys.argv[1:])
    output.write_text(joined(sources, top))


main()
