#!/usr/bin/env python3
"""Prints how many branches of the core and the embedded suite the native tests take.

    coverage.py <root of the sources> <build folder> <list of explained lines>

Fails when fewer than 95 of 100 branches are taken, when a line with a branch that is never taken stands nowhere in the list, and
when the list names a line whose branches are all taken. Branches that only an exception takes are not counted.
"""
import json
import pathlib
import re
import subprocess
import sys

GOAL = 95.0
COUNTED = [r"dlglib/(?:[a-z]+/)+[a-z0-9_]+\.(cpp|h)$", r"platform/suite/[a-z0-9_]+\.(cpp|h)$"]


def measure(root, build):
    command = ["gcovr", "--root", str(root), "--exclude-throw-branches", "--exclude-unreachable-branches", "--json", "-"]
    for pattern in COUNTED:
        command += ["--filter", str(root) + "/" + pattern]
    return json.loads(subprocess.run(command + [str(build)], check=True, capture_output=True, cwd=root).stdout)["files"]


def counts(line):
    branches = [branch for branch in line["branches"] if not branch.get("throw")]
    return len(branches), sum(branch["count"] > 0 for branch in branches)


def explained(path):
    lines = path.read_text(encoding="utf-8").splitlines()
    return {line.strip() for line in lines if line.strip() and not line.startswith("#")}


def main(root, build, listed):
    root = pathlib.Path(root).resolve()
    known = explained(pathlib.Path(listed))
    open_lines = set()
    total = taken = 0
    for file in sorted(measure(root, build), key=lambda file: file["file"]):
        source = (root / file["file"]).read_text(encoding="utf-8").splitlines()
        file_total = file_taken = 0
        for line in file["lines"]:
            all_branches, taken_branches = counts(line)
            file_total += all_branches
            file_taken += taken_branches
            if taken_branches < all_branches:
                text = re.sub(r"\s+", " ", source[line["line_number"] - 1]).strip()
                open_lines.add(f"{file['file']}: {text}")
        if file_total:
            print(f"{100.0 * file_taken / file_total:6.1f} %  {file_taken:4} of {file_total:4}  {file['file']}")
        total += file_total
        taken += file_taken
    share = 100.0 * taken / total
    print(f"{share:6.1f} %  {taken} of {total} branches of the core and the suite")
    unexplained = sorted(open_lines - known)
    stale = sorted(known - open_lines)
    for line in unexplained:
        print("a branch that is never taken, and not explained:", line)
    for line in stale:
        print("explained, but taken or gone:", line)
    return 1 if share < GOAL or unexplained or stale else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
