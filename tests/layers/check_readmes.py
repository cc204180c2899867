#!/usr/bin/env python3
"""Compares pages that exist in two languages (README.md and README.ja.md, and so on): the same headings, commands, code blocks, links,
pictures, lists and tables, in the same order. Links to files must lead somewhere, and docs/README.md to all pages.

    check_readmes.py <root of the tree>

What is text is the translator's matter. Prints each place where the two differ and answers 1 when there is one.
"""
import os
import re
import sys

PAIRS = ("README", "docs/embedding", "docs/host", "docs/c-interface")


def blocks(text):
    """The text without its code, and each block of code: fenced ones, and lines that are indented."""
    code = re.findall(r"^```.*?^```", text, re.M | re.S)
    rest = re.sub(r"^```.*?^```", "", text, flags=re.M | re.S)
    code += re.findall(r"^    \S.*", rest, re.M)
    return re.sub(r"^    \S.*", "", rest, flags=re.M), code


def shape(text):
    """What both languages must share, by kind."""
    rest, code = blocks(text)
    # A page in one language leads to pages in the same one, where they are.
    links = [link.replace(".ja.md", ".md") for link in re.findall(r"\]\(([^)]*)\)", rest)]
    named = set(re.findall(r"`([^`]+)`", rest))
    return {
        "headings": [len(marks) for marks in re.findall(r"^(#+) ", rest, re.M)],
        "code": code,
        "links": sorted(links),
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


def dead_links(text, folder):
    """Links to files that are not there; `folder` is that of the page."""
    for link in re.findall(r"\]\(([^)#]+)[^)]*\)", re.sub(r"`[^`]*`", "", blocks(text)[0])):
        if "://" not in link and not os.path.exists(os.path.join(folder, link)):
            yield link


def unlisted(root):
    """Pages of docs/ to which docs/README.md has no link; of two languages one is enough."""
    listed = read(root, "docs/README.md")
    for name in sorted(os.listdir(os.path.join(root, "docs"))):
        if name.endswith(".md") and name != "README.md" and f"]({name.replace('.ja.md', '.md')})" not in listed:
            yield name


def read(root, path):
    with open(os.path.join(root, path), encoding="utf-8") as file:
        return file.read()


def pages(root):
    for folder in ("", "docs", "fuzz", "bench"):
        for name in sorted(os.listdir(os.path.join(root, folder))):
            if name.endswith(".md"):
                yield os.path.join(folder, name)


def complaints(root):
    for pair in PAIRS:
        for line in differences(read(root, pair + ".md"), read(root, pair + ".ja.md")):
            yield f"{pair}.md and {pair}.ja.md differ in {line}"
    for page in pages(root):
        for link in dead_links(read(root, page), os.path.join(root, os.path.dirname(page))):
            yield f"{page} leads to {link}, which is not there"
    for name in unlisted(root):
        yield f"docs/README.md has no link to {name}"


def main():
    bad = list(complaints(sys.argv[1]))
    for line in bad:
        print(line)
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
