"""Reads a JUnit report as CI systems do and prints what stands in it: read_junit.py FILE"""
import sys

from junitparser import JUnitXml

report = JUnitXml.fromfile(sys.argv[1])
for suite in report:
    print(f"suite {suite.name}: tests {suite.tests} failures {suite.failures} errors {suite.errors} "
          f"skipped {suite.skipped}")
    for case in suite:
        print(f"case {case.classname} {case.name}")
        for result in case.result:
            print(f"  {type(result).__name__} {result.type or '-'}: {result.message}")
            print("".join(f"    {line}\n" for line in (result.text or "").splitlines()), end="")
        print("".join(f"  out: {line}\n" for line in (case.system_out or "").splitlines()), end="")
