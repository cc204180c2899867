#!/usr/bin/env python3
"""Checks that every quirk of docs/quirks.md is held by tests that exist.

    check_quirks.py <root of the tree>

Prints each row without a test and each test that is named there and nowhere defined; answers 1 when there is one.
"""
import os
import re
import sys


def rows(page):
    """(what stands in front, the tests) of each row of the tables."""
    for line in page.splitlines():
        cells = [cell.strip() for cell in re.split(r"(?<!\\)\|", line)[1:-1]]
        if len(cells) < 2 or cells[0] == "where" or not cells[0].strip("-"):
            continue
        yield cells[0], re.findall(r"`(\w+)\.(\w+)`", cells[-1])


def defined(root):
    tests = set()
    for folder, _, names in os.walk(os.path.join(root, "tests")):
        for name in names:
            if name.endswith(".cpp"):
                with open(os.path.join(folder, name), encoding="utf-8") as file:
                    tests.update(re.findall(r"^TEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\)", file.read(), re.M))
    return tests


def main():
    root = sys.argv[1]
    with open(os.path.join(root, "docs", "quirks.md"), encoding="utf-8") as file:
        found = list(rows(file.read()))
    known = defined(root)
    breaches = [] if found else ["docs/quirks.md has no table"]
    breaches += [f"no test: {where}" for where, tests in found if not tests]
    breaches += [f"no such test: {suite}.{name} ({where})"
                 for where, tests in found for suite, name in tests if (suite, name) not in known]
    for breach in breaches:
        print(breach)
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
