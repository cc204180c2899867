#!/usr/bin/env python3
"""Unpacks the archive of ./build.sh --package as somebody does who has nothing else, and checks what it holds. Prints each breach and
answers 1 when there is one.

    check_archive.py <folder of the archive> <folder to unpack into> <root of the sources>
"""
import hashlib
import json
import re
import subprocess
import sys
import zipfile
import zlib
from pathlib import Path

PROGRAMS = ("crvndlglib.dll", "crvnsuite.dll", "corvane-demo.exe")
TOP = {"CHANGELOG.md", "CONTRIBUTING.md", "LICENSE.md", "README.ja.md", "README.md", "bench", "bin", "demo", "dlglib.spdx.json",
       "docs", "examples", "fuzz", "include", "lib", "symbols"}
UTF8_NAME = 0x800  # the bit of a ZIP file's entry that says so
TOOLS = "x86_64-w64-mingw32-"


def said_by(tool, *arguments):
    return subprocess.run([TOOLS + tool, *arguments], check=True, capture_output=True, text=True).stdout


def files_below(folder):
    return {path.relative_to(folder).as_posix(): path for path in folder.rglob("*") if path.is_file()}


def check_archive(archive):
    """The checksum beside it, and names that unpack alike everywhere."""
    kept = archive.with_name(archive.name + ".sha256").read_text().split()
    if kept != [hashlib.sha256(archive.read_bytes()).hexdigest(), archive.name]:
        yield f"{archive.name}: not what its checksum says"
    for entry in zipfile.ZipFile(archive).infolist():
        if not entry.filename.isascii() and not entry.flag_bits & UTF8_NAME:
            yield f"{entry.filename}: not marked as UTF-8"
        if entry.filename.startswith("/") or ".." in entry.filename.split("/"):
            yield f"{entry.filename}: unpacked outside its folder"


def compare(folder, wanted, what):
    """Files that are missing, differ, or should not be there."""
    found = files_below(folder)
    for name in sorted(found.keys() ^ wanted.keys()):
        yield f"{what}: {name} " + ("should not be there" if name in found else "is missing")
    for name in sorted(found.keys() & wanted.keys()):
        if found[name].read_bytes() != wanted[name].read_bytes():
            yield f"{what}: {name} differs from the source"


def check_copies(root, sources):
    if {path.name for path in root.iterdir()} != TOP:
        yield f"the archive holds: {' '.join(sorted(path.name for path in root.iterdir()))}"
    yield from compare(root / "bin/data", files_below(sources / "demo/data"), "bin/data")
    yield from compare(root / "examples", files_below(sources / "examples"), "examples")
    pages = {name: path for name, path in files_below(sources / "docs").items() if path.suffix in (".md", ".png")}
    shown = files_below(root / "docs")
    for name in sorted(name for name in pages if name not in shown or shown[name].read_bytes() != pages[name].read_bytes()):
        yield f"docs: {name} is not there as it is"
    if "reference/index.html" not in shown:
        yield "docs: no reference"


def check_links(root):
    """What a page of the archive leads to is in it."""
    for page in root.rglob("*.md"):
        for target in re.findall(r"\]\(([^)#:]+)(?:#[^)]*)?\)", page.read_text("utf-8")):
            if not (page.parent / target).exists():
                yield f"{page.relative_to(root)}: leads to {target}, which is not in the archive"


def debug_link(program):
    """The name of the file with a program's debug records, and its sum: a text that ends with zero bytes up to a whole word, a word."""
    dump = subprocess.run([TOOLS + "objdump", "-s", "-j", ".gnu_debuglink", program], capture_output=True, text=True,
                          check=False).stdout
    words = [word for line in dump.splitlines() if re.match(r" [0-9a-f]+ ", line) for word in line[1:].split("  ")[0].split()[1:]]
    link = bytes.fromhex("".join(words))
    name = link.split(b"\0")[0]
    at = (len(name) // 4 + 1) * 4
    return name.decode(), int.from_bytes(link[at:at + 4], "little")


def check_programs(root):
    for name in PROGRAMS:
        program, records = root / "bin" / name, root / "symbols" / (name + ".debug")
        if "no symbols" not in subprocess.run([TOOLS + "nm", program], capture_output=True, text=True, check=False).stderr:
            yield f"bin/{name}: not stripped"
        for owner in ("Nalbo", "Copyright (C) Nalbo"):
            if owner.encode("utf-16-le") + b"\0\0" not in program.read_bytes():
                yield f"bin/{name}: its version record does not say: {owner}"
        name_told, sum_told = debug_link(program)
        if name_told != records.name:
            yield f"bin/{name}: not linked with its debug records"
        elif sum_told != zlib.crc32(records.read_bytes()):
            yield f"symbols/{records.name}: not the debug records of bin/{name}"


def check_symbols(root, sources):
    """A debugger finds the source of a function."""
    records = str(root / "symbols/crvndlglib.dll.debug")
    address = re.search(r"^([0-9a-f]+) T DlglibVersion$", said_by("nm", records), re.M).group(1)
    place = said_by("addr2line", "-e", records, address)
    if "dlglib_c.cpp:" not in place:
        yield f"symbols: DlglibVersion is at {place.strip()}"
    if str(sources.resolve()) in said_by("strings", "-a", records):
        yield "symbols: the path of a build"


def check_names(root, sources):
    """What other linkers and those who look functions up are told."""
    exported = set((sources / "dlglib/exports.txt").read_text().split())
    text = (root / "lib/dlglib.def").read_text()
    if set(re.findall(r"^    (\S+)", text, re.M)) != exported or not text.startswith("LIBRARY crvndlglib.dll\n"):
        yield "lib/dlglib.def: not the exported names"
    library = said_by("nm", str(root / "lib/crvndlglib.lib"))
    for name in sorted(name for name in exported if f" __imp_{name}\n" not in library):
        yield f"lib/crvndlglib.lib: no {name}"


def check_bill(root):
    bill = json.loads((root / "dlglib.spdx.json").read_text("utf-8"))
    told = {file["fileName"]: {sum["algorithm"]: sum["checksumValue"] for sum in file["checksums"]} for file in bill["files"]}
    found = {"./" + name: path for name, path in files_below(root).items() if name != "dlglib.spdx.json"}
    for name in sorted(told.keys() ^ found.keys()):
        yield f"dlglib.spdx.json: {name} is " + ("not told of" if name in found else "not there")
    for name in sorted(told.keys() & found.keys()):
        content = found[name].read_bytes()
        if told[name] != {"SHA1": hashlib.sha1(content).hexdigest(), "SHA256": hashlib.sha256(content).hexdigest()}:
            yield f"dlglib.spdx.json: {name} has other sums"
    own = bill["packages"][0]
    code = hashlib.sha1("".join(sorted(sums["SHA1"] for sums in told.values())).encode()).hexdigest()
    if not own["filesAnalyzed"] or own["packageVerificationCode"]["packageVerificationCodeValue"] != code:
        yield "dlglib.spdx.json: the files are not the package's"


def breaches(root, sources):
    for check in (check_links, check_programs, check_bill):
        yield from check(root)
    for check in (check_copies, check_symbols, check_names):
        yield from check(root, sources)


def main():
    packages, root, sources = map(Path, sys.argv[1:])
    archives = list(packages.glob("dlglib-*-win64.zip"))
    if len(archives) != 1:
        print(f"{packages} holds {len(archives)} archives")
        return 1
    zipfile.ZipFile(archives[0]).extractall(root)
    found = [*check_archive(archives[0]), *breaches(root, sources)]
    print("\n".join(found), end="\n" if found else "")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
