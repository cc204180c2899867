#!/usr/bin/env python3
"""Compares README.md and README.ja.md: the same headings, commands, code blocks, links, pictures, lists and tables, in the same order.

    check_readmes.py <root of the tree>

What is text is the translator's matter. Prints each place where the two differ and answers 1 when there is one.
"""
import os
import re
import sys


def blocks(text):
    """The text without its code, and each block of code: fenced ones, and lines that are indented."""
    code = re.findall(r"^```.*?^```", text, re.M | re.S)
    rest = re.sub(r"^```.*?^```", "", text, flags=re.M | re.S)
    code += re.findall(r"^    \S.*", rest, re.M)
    return re.sub(r"^    \S.*", "", rest, flags=re.M), code


def shape(text):
    """What both languages must share, by kind."""
    rest, code = blocks(text)
    links = re.findall(r"\]\(([^)]*)\)", rest)
    named = set(re.findall(r"`([^`]+)`", rest))
    return {
        "headings": [len(marks) for marks in re.findall(r"^(#+) ", rest, re.M)],
        "code": code,
        # Each leads to the other one, by its name.
        "links": sorted(link for link in links if not link.startswith("README")),
        "pictures": re.findall(r"!\[[^\]]*\]\(([^)]*)\)", rest),
        "commands and names": sorted(named),
        "lines of tables": [line.count("|") for line in rest.splitlines() if line.startswith("|")],
        "points": len(re.findall(r"^- ", rest, re.M)),
    }


def differences(one, other):
    for kind, expected in shape(one).items():
        found = shape(other)[kind]
        if found == expected:
            continue
        if isinstance(expected, list):
            yield f"{kind}: {[each for each in expected if each not in found]} {[each for each in found if each not in expected]}"
        else:
            yield f"{kind}: {expected} {found}"


def main():
    texts = []
    for name in ("README.md", "README.ja.md"):
        with open(os.path.join(sys.argv[1], name), encoding="utf-8") as file:
            texts.append(file.read())
    bad = list(differences(*texts))
    for line in bad:
        print("README.md and README.ja.md differ in " + line)
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
