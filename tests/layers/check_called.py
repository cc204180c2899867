#!/usr/bin/env python3
"""Finds functions of the product that nothing of the product calls: what only tests call, and what nobody does.

    check_called.py <root of the tree> <build folder> <list of reasoned exceptions>

A function with a symbol of its own is called when another object of the product names that symbol, when a DLL exports it, when it is
virtual, or when its own source speaks of it anywhere but where it defines it. Of an inline function there may be no symbol: it is called when
any source of the product speaks of its name but where one is defined. Names that several functions bear hide each other there.

Installed headers are for clients and are not looked at. Prints each function as file: name. Answers 1 when one is not in the list, or when
the list names one that is called or gone.
"""

import json
import re
import shlex
import subprocess
import sys
from collections import Counter
from pathlib import Path

PRODUCT = ("dlglib", "platform")
# The stand-ins for tests are no product.
NO_PRODUCT = "os_scripted"
COMMENT = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:[^"\\\n]|\\.)*"', re.S)
VIRTUAL = re.compile(r"\bvirtual\b[^;{}]*?\b(\w+)\(|\b(\w+)\((?:[^;{}]|\{\})*\)[^;{}()]*\boverride\b")
# A definition within a header: a name, its parameters, what may follow them, and a body.
INLINE = re.compile(r"\b([A-Za-z_]\w*)\([^;{}]*\)(?:\s*(?:const|noexcept|override|final|&))*(?:\s*:[^;{}]*)?\s*\{")
NO_FUNCTION = {"if", "for", "while", "switch", "catch", "return", "sizeof", "operator", "defined", "alignof"}


def sources(root):
    """The text without comments and literals of each source of the product."""
    found = {}
    for folder in PRODUCT:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in (".h", ".cpp", ".inc") and not path.name.startswith(NO_PRODUCT):
                found[path.relative_to(root).as_posix()] = COMMENT.sub(" ", path.read_text(encoding="utf-8"))
    return found


def words(text):
    return Counter(re.findall(r"[A-Za-z_]\w*", text))


def installed(root):
    """The headers that a client gets."""
    lists = root / "cmake/product.cmake"
    text = lists.read_text(encoding="utf-8") if lists.is_file() else ""
    return set(re.findall(r"^\s+((?:dlglib|platform)/\S+\.h)$", text, re.M))


class Objects:
    """What the product's objects define and name."""

    def __init__(self, root, build):
        self.source_of = {}
        self.missing = []
        for entry in json.loads((build / "compile_commands.json").read_text(encoding="utf-8")):
            line = shlex.split(entry["command"])
            source = (Path(entry["directory"]) / entry["file"]).resolve()
            if "-o" in line and source.is_relative_to(root) and source.suffix == ".cpp":
                path = source.relative_to(root).as_posix()
                made = build / line[line.index("-o") + 1]
                # A test may compile a source of the product once more.
                ours = made.is_relative_to(build) and made.relative_to(build).parts[0] in PRODUCT
                if ours and path.split("/")[0] in PRODUCT and NO_PRODUCT not in str(made):
                    self.source_of[made] = path
                    self.missing += [] if made.is_file() else [path]
        self.defined = {}  # symbols with the objects that define them out of line
        self.named_in = {}  # symbols with the objects that name those of others
        self.exported = set()
        for made in [] if self.missing else self.source_of:
            self.read_symbols(made)
            self.read_exports(made)

    @staticmethod
    def said(*command):
        return subprocess.run(command, check=True, capture_output=True, text=True).stdout

    def read_symbols(self, made):
        lines = [line.split() for line in self.said("nm", "--format=posix", str(made)).splitlines()]
        once = {name.split("$", 1)[1] for name, *_ in lines if name.startswith(".text$")}
        for name, kind, *_ in lines:
            if kind == "U":
                self.named_in.setdefault(name, set()).add(made)
            elif kind == "T" and name not in once:
                self.defined.setdefault(name, made)

    def read_exports(self, made):
        if ".drectve" not in self.said("objdump", "--section-headers", str(made)):
            return
        text = self.said("objdump", "--full-contents", "--section=.drectve", str(made))
        hexed = "".join("".join(line[6:41].split()) for line in text.splitlines() if re.match(r" [0-9a-f]{4} ", line))
        self.exported.update(re.findall(r'-export:"?([^\s",]+)', bytes.fromhex(hexed).decode("ascii", "replace")))

    def functions(self):
        """(name as written in a source, source, whether something else names it) of what is defined out of line."""
        symbols = sorted(self.defined)
        plain = self.said("c++filt", *symbols).splitlines()
        for symbol, text in zip(symbols, plain):
            made = self.defined[symbol]
            named = symbol in self.exported or self.named_in.get(symbol, set()) - {made}
            yield base_name(text), self.source_of[made], bool(named)


def base_name(demangled):
    """The name in front of the parameters, without its scopes."""
    name = re.sub(r"\(anonymous namespace\)::|\[abi:\w+\]", "", demangled)
    name = name.split("(")[0] if not name.startswith("operator") else name
    while "<" in name and ">" in name:
        name = re.sub(r"<[^<>]*>", "", name) if re.search(r"<[^<>]*>", name) else name.replace("<", "")
    return name.split("::")[-1].split()[-1]


def uncalled_outside(objects, texts):
    """What no other object names and what its own source never speaks of but where it defines it."""
    functions = list(objects.functions())
    definitions = Counter((source, name) for name, source, _ in functions)
    virtual = {name for text in texts.values() for names in VIRTUAL.findall(text) for name in names}
    for name, source, named in functions:
        if named or not name.isidentifier() or name in virtual or name == "DllMain":
            continue
        own = words(texts[source])[name]
        declared = words(texts.get(source[:-len(".cpp")] + ".h", ""))[name]
        if own <= definitions[source, name] and declared <= definitions[source, name]:
            yield f"{source}: {name}"


def uncalled_inline(texts, skipped):
    everywhere = sum((words(text) for text in texts.values()), Counter())
    defined = {}
    for path, text in texts.items():
        for name in INLINE.findall(text) if path.endswith(".h") else []:
            defined.setdefault(name, []).append(path)
    for name, paths in defined.items():
        if name in NO_FUNCTION or everywhere[name] > len(paths) or paths[0] in skipped:
            continue
        yield f"{paths[0]}: {name}"


def explained(path):
    lines = Path(path).read_text(encoding="utf-8").splitlines()
    return {line.strip() for line in lines if line.strip() and not line.startswith("#")}


def main(root, build, listed):
    root, build = Path(root).resolve(), Path(build).resolve()
    objects = Objects(root, build)
    if objects.missing or not objects.source_of:
        print(f"{build}: not all objects of the product are there; ./build.sh makes them")
        return 1
    texts = sources(root)
    found = set(uncalled_outside(objects, texts)) | set(uncalled_inline(texts, installed(root)))
    known = explained(listed)
    said = [f"{each}: nothing of the product calls this" for each in sorted(found - known)]
    said += [f"{each}: in the list, but called or gone" for each in sorted(known - found)]
    print("\n".join(said), end="\n" if said else "")
    return 1 if said else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
