#!/usr/bin/env python3
"""Checks that texts of two encodings cannot be taken for one another.

    check_mixing.py <compiler> <root of the tree> <source>

The source compiles, and with MIXED defined it does not: there is one error, on the line behind "#ifdef MIXED", and it is
about a conversion. Anything else, a header that is missing for example, is no proof.
"""
import os
import re
import subprocess
import sys

CONVERSION = re.compile(r"could not convert|no viable conversion|no matching|invalid initialization|cannot convert")


def errors(compiler, root, source, *definitions):
    """(line, message) of every error."""
    command = [compiler, "-std=c++20", "-fsyntax-only", "-I", root, *definitions, source]
    done = subprocess.run(command, capture_output=True, text=True, env={**os.environ, "LC_ALL": "C"}, check=False)
    found = re.findall(r"^(.*?):(\d+):\d+: (?:fatal )?error: (.*)$", done.stderr, re.M)
    if done.returncode != 0 and not found:
        found = [(source, 0, done.stderr)]
    return [(file, int(line), message) for file, line, message in found]


def main():
    compiler, root, source = sys.argv[1:]
    with open(source, encoding="utf-8") as file:
        mixed_line = file.read().split("#ifdef MIXED\n")[0].count("\n") + 2
    problems = [f"the twin: {error}" for error in errors(compiler, root, source)]
    mixed = errors(compiler, root, source, "-DMIXED")
    as_meant = (len(mixed) == 1 and mixed[0][0] == source and mixed[0][1] == mixed_line
                and CONVERSION.search(mixed[0][2]))
    if not as_meant:
        problems.append(f"with MIXED, instead of a conversion refused in line {mixed_line}: {mixed or 'it compiles'}")
    for problem in problems:
        print(f"{source}: {problem}")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
