#!/usr/bin/env python3
"""Compares the layouts of the exported classes with a list that is checked in: size, alignment and the order of virtual functions.
Programs that were compiled with other layouts would not run with the DLL.

    check_layouts.py <compiler> <root of the tree> [--renew]

Prints what is new (+) and what is gone (-), and answers 1 when there is such a line; --renew writes the list anew.
"""
import difflib
import os
import re
import subprocess
import sys
import tempfile

LIST = "dlglib/layouts.txt"
EXPORTS = ("dlglib/exports.txt", "platform/suite/exports.txt")


def exported_classes(root):
    """Names of the classes of which anything is exported."""
    found = set()
    for path in EXPORTS:
        with open(os.path.join(root, path), encoding="ascii") as file:
            for name in file:
                nested = re.match(r"_ZN[KV]*(\d+)", name)
                if nested:
                    start = nested.end()
                    found.add(name[start:start + int(nested.group(1))])
    return found


def dumped(compiler, root):
    """What the compiler says of every class that a client sees."""
    with tempfile.TemporaryDirectory() as folder:
        dump = os.path.join(folder, "classes")
        subprocess.run([compiler, "-std=c++20", "-I", os.path.abspath(root), "-x", "c++", "-fsyntax-only",
                        "-fdump-lang-class=" + dump, "-"], check=True, cwd=folder, input="#include <dlglib/dlglib.h>\n", text=True)
        with open(dump, encoding="utf-8") as file:
            return file.read()


def layouts(dump, classes):
    lines = []
    for record in sorted(set(dump.split("\n\n"))):
        kind, _, rest = record.partition("\n")
        name = kind.rpartition(" ")[2]
        if name not in classes:
            continue
        if kind.startswith("Class "):
            size, alignment = re.match(r"\s*size=(\d+) align=(\d+)", rest).groups()
            lines.append(f"{name}: {size} bytes, aligned at {alignment}")
        elif kind.startswith("Vtable for "):
            slots = re.findall(r"^(\d+) +\(int \(\*\)\(\.\.\.\)\)(\w+::.*)$", rest, re.M)
            lines += [f"{name}: at {place} {function}" for place, function in slots]
    return lines


def main():
    compiler, root = sys.argv[1:3]
    path = os.path.join(root, LIST)
    found = layouts(dumped(compiler, root), exported_classes(root))
    if not found:
        print("the compiler tells of no exported class")
        return 1
    if sys.argv[3:] == ["--renew"]:
        with open(path, "w", encoding="ascii") as file:
            file.write("\n".join(found) + "\n")
        return 0
    with open(path, encoding="ascii") as file:
        listed = file.read().splitlines()
    changes = [line for line in difflib.unified_diff(listed, found, n=0, lineterm="") if re.match(r"[-+](?![-+])", line)]
    for line in changes:
        print(line)
    if changes:
        print(f"The classes are laid out otherwise than {LIST} says. When only new ones stand there: ./build.sh --exports")
    return 1 if changes else 0


if __name__ == "__main__":
    sys.exit(main())
