"""A build folder of Ninja whose test programs are built once more with other sources in the place of some.

Nothing of the folder changes: a mutant is compiled by the commands of the build into files of its own, and the programs are
linked from those and from the objects that are there.
"""

import json
import os
import re
import shlex
import shutil
import subprocess
from dataclasses import dataclass, field
from pathlib import Path


class DoesNotCompile(Exception):
    """The mutant is no C++."""


@dataclass
class Program:
    """A test program and how CTest starts it."""

    path: str  # below the build folder
    link: list
    command: list
    environment: dict
    objects: list = field(default_factory=list)
    sources: list = field(default_factory=list)  # below the root

    def nearness(self, path):
        """How near this program's own tests stand to a source: whether one bears its name, then the folders they share."""
        stem = Path(path).stem
        folders = Path(path).parent.parts[1:]
        best = (False, 0)
        for source in map(Path, self.sources):
            if source.parts[0] not in ("tests", "fuzz"):
                continue
            shared = 0
            while shared < len(folders) and folders[shared] in source.parts:
                shared += 1
            best = max(best, (source.stem == stem + "_test", shared))
        return best


class TestBuild:
    """`most_kib`: the memory that a test program may take, if that is limited."""

    def __init__(self, root, folder, most_kib="unlimited"):
        self.most_kib = most_kib
        self.root, self.folder = Path(root).resolve(), Path(folder).resolve()
        self.launcher = [shutil.which("ccache")] if shutil.which("ccache") else []
        self.compile = {}  # commands by object
        self.source_of = {}  # below the root, by object
        for entry in json.loads((self.folder / "compile_commands.json").read_text(encoding="utf-8")):
            words = shlex.split(entry["command"])
            made = words[words.index("-o") + 1]
            self.compile[made] = words
            self.source_of[made] = self.below_root(entry["file"])
        self.read_by = self.dependencies()
        self.programs = self.test_programs()

    def below_root(self, path):
        path = os.path.normpath(os.path.join(self.folder, path))
        return os.path.relpath(path, self.root).replace(os.sep, "/")

    def asked(self, *words):
        return subprocess.run(words, cwd=self.folder, check=True, capture_output=True, text=True).stdout

    def dependencies(self):
        """The objects that read each file of the tree."""
        read_by = {}
        made = None
        for line in self.asked("ninja", "-t", "deps").splitlines():
            if line.startswith(" "):
                if made in self.compile:
                    read_by.setdefault(self.below_root(line.strip()), set()).add(made)
            elif line:
                made = line.split(":")[0]
        return read_by

    def test_programs(self):
        programs = []
        for test in json.loads(self.asked("ctest", "--show-only=json-v1"))["tests"]:
            command = test.get("command", [])
            if not command or not command[0].startswith(str(self.folder) + os.sep):
                continue
            path = os.path.relpath(command[0], self.folder)
            properties = {each["name"]: each["value"] for each in test["properties"]}
            environment = dict(each.split("=", 1) for each in properties.get("ENVIRONMENT", []))
            link = shlex.split(self.asked("ninja", "-t", "commands", path).splitlines()[-1])
            link = [word for word in link if word not in (":", "&&")]
            command = [word for word in command if not word.startswith("--gtest_output")]
            objects = [word for word in link if word in self.compile]
            sources = [self.source_of[each] for each in objects]
            programs.append(Program(path, link, command, environment, objects, sources))
        return programs

    def sources(self, pattern):
        """The files below the root that the test programs are made of, and whose paths match."""
        linked = {each for program in self.programs for each in program.objects}
        return sorted(path for path, objects in self.read_by.items() if re.fullmatch(pattern, path) and objects & linked)

    def nearest_first(self, path):
        """The programs that link what reads a file, those next to it first."""
        objects = self.read_by.get(path, set())
        programs = [program for program in self.programs if objects.intersection(program.objects)]
        return sorted(programs, key=lambda program: (*program.nearness(path), program.path), reverse=True)

    def runs_well(self, program, path, folder, seconds):
        """Runs a test program that lies at `path`, in `folder`; false as well when it takes longer."""
        limited = ["sh", "-c", 'ulimit -c 0 && ulimit -v "$0" && exec "$@"', str(self.most_kib), str(path), *program.command[1:]]
        environment = os.environ | program.environment | {"GTEST_FAIL_FAST": "1", "GTEST_BRIEF": "1"}
        try:
            return subprocess.run(limited, cwd=folder, env=environment, timeout=seconds, check=False, stdin=subprocess.DEVNULL,
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0
        except subprocess.TimeoutExpired:
            return False


class Mutant:
    """A file of the tree in another form, and the programs that are made with it. `folder` is its own."""

    def __init__(self, build, path, text, folder):
        self.build, self.path, self.folder = build, path, Path(folder)
        self.overlay = self.folder / "tree"
        self.objects = {}  # compiled so far: the mutant's object, or None when it is the same machine code
        (self.overlay / path).parent.mkdir(parents=True, exist_ok=True)
        (self.overlay / path).write_text(text, encoding="utf-8")

    def compiled(self, made):
        if made not in self.objects:
            own = self.folder / f"{len(self.objects)}.o"
            # Before the tree's own folder, so that a changed header is found first.
            words = self.build.compile[made]
            command = [*self.build.launcher, words[0], f"-I{self.overlay}", *words[1:]]
            command[command.index("-o") + 1] = str(own)
            if self.build.source_of[made] == self.path:
                command[-1] = str(self.overlay / self.path)
            if subprocess.run(command, cwd=self.build.folder, capture_output=True, check=False).returncode != 0:
                raise DoesNotCompile(self.path)
            same = own.read_bytes() == (self.build.folder / made).read_bytes()
            self.objects[made] = None if same else own
        return self.objects[made]

    def linked(self, program):
        """The program with this mutant; None when it is the same as before."""
        changed = self.build.read_by[self.path].intersection(program.objects)
        own = {made: self.compiled(made) for made in sorted(changed)}
        if not any(own.values()):
            return None
        path = self.folder / Path(program.path).name
        command = [str(own.get(word) or word) for word in program.link]
        command[command.index("-o") + 1] = str(path)
        subprocess.run(command, cwd=self.build.folder, capture_output=True, check=True)
        return path

    def passes(self, program, seconds):
        """Whether the program's tests pass with this mutant in that time; None when it is the same program."""
        path = self.linked(program)
        if path is None:
            return None
        well = self.build.runs_well(program, path, self.folder, seconds)
        path.unlink()
        return well
