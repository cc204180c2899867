"""Checks that no test is left out: that one of the builds compiles each *_test.cpp of a tree into a program that CTest starts,
and that CTest starts every program that GoogleTest is linked into. Prints each breach as file: text and answers 1 when there is one.

    check_tests_run.py <root of the tree> <build folder...>

A folder with a project of its own has builds of its own, and is checked with those. The builds are Ninja's and have been
configured; nothing need have been built yet.
"""

import json
import os
import re
import shlex
import sys
from pathlib import Path


def is_project(folder):
    lists = Path(folder, "CMakeLists.txt")
    return lists.is_file() and re.search(r"^project\(", lists.read_text(encoding="utf-8"), re.MULTILINE) is not None


def test_sources(root):
    """Every *_test.cpp of the project, without its build folder and the projects inside."""
    for folder, below, files in os.walk(root):
        below[:] = sorted(name for name in below if name not in ("build", ".git") and not is_project(Path(folder, name)))
        yield from (Path(folder, name).resolve() for name in sorted(files) if name.endswith("_test.cpp"))


class Build:
    """One build folder, as Ninja and CTest read it."""

    def __init__(self, folder):
        self.folder = Path(folder).resolve()
        self.objects = {}  # by source, as Ninja names them
        for entry in json.loads((self.folder / "compile_commands.json").read_text(encoding="utf-8")):
            words = shlex.split(entry["command"])
            made = [after for word, after in zip(words, words[1:]) if word == "-o"]  # resources name their output without it
            self.objects.setdefault(Path(entry["file"]).resolve(), []).extend(made)
        statements = (self.folder / "build.ninja").read_text(encoding="utf-8").splitlines()
        links = [line.split() for line in statements if re.match(r"build [^:]*: CXX_EXECUTABLE_LINKER__", line)]
        self.programs = {words[1].rstrip(":"): set(words[3:]) for words in links}
        self.tests = "".join(
            line
            for lists in self.folder.rglob("CTestTestfile.cmake")
            for line in lists.read_text(encoding="utf-8").splitlines(keepends=True)
            if line.lstrip().startswith("add_test(")
        )

    def starts(self, program):
        return f'"{self.folder / program}"' in self.tests

    def runs(self, source):
        objects = self.objects.get(source, [])
        return any(self.starts(program) and inputs.intersection(objects) for program, inputs in self.programs.items())

    def idle_programs(self):
        """The programs with GoogleTest that nothing starts."""
        for program, inputs in self.programs.items():
            if any(Path(name).name.startswith("libgtest") for name in inputs) and not self.starts(program):
                yield self.folder / program


def breaches(root, builds):
    for source in test_sources(root):
        if not any(source in build.objects for build in builds):
            yield f"{source}: no build compiles this test"
        elif not any(build.runs(source) for build in builds):
            yield f"{source}: CTest starts no program with this test"
    for build in builds:
        yield from (f"{program}: CTest does not start this test program" for program in build.idle_programs())


def main(root, *folders):
    unconfigured = [folder for folder in folders if not Path(folder, "compile_commands.json").is_file()]
    found = [f"{folder}: no compile database; ./build.sh makes it" for folder in unconfigured]
    found = found or list(breaches(Path(root), [Build(folder) for folder in folders]))
    print("\n".join(found), end="\n" if found else "")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
