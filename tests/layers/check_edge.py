#!/usr/bin/env python3
"""Checks that nothing leaves the library but answers: that every public function of the exported classes, and every function of the
C interface, is noexcept or passes the guard (dlglib/base/edge.h), and that the test which refuses memory knows it. Prints each breach
as file: text and answers 1 when there is one.

  check_edge.py <root of the tree>
"""
import pathlib
import re
import subprocess
import sys

# class: its header, and where it is defined
CLASSES = {
    "CvFilSelDlg": ("dlglib/filsel/CvFilSelDlg.h", "dlglib/filsel/CvFilSelDlg*.cpp"),
    "CvListControl": ("dlglib/listcontrol/CvListControl.h", "dlglib/listcontrol/CvListControl*.cpp"),
    "CvUtility": ("dlglib/utility/CvUtility.h", "dlglib/utility/CvUtility*.cpp"),
}
C_INTERFACE = ("dlglib/dlglib_c.cpp", "dlglib/c_interface/*.cpp")
C_HELPERS = "dlglib/c_interface/*.h"
EXPORTS = "dlglib/exports.txt"
TABLE = "tests/robustness/interface_calls*.cpp"

# They do nothing themselves that takes memory, and need nothing that the object keeps.
WITHOUT_MEMORY = {
    "BitSet", "CheckChar", "CheckFileName", "CheckModelName", "ExceptSpace", "GetFileNamePos", "GetTextData", "SetFileIO",
    "SetTextColor", "SpaceNull", "Strrchr", "TextCopy", "DlglibCheckChar", "DlglibVersion",
}


def without_comments(text):
    return re.sub(r"//[^\n]*", "", text)


def body_at(text, brace):
    """The text from an opening brace to its closing one."""
    depth = 0
    for at in range(brace, len(text)):
        depth += {"{": 1, "}": -1}.get(text[at], 0)
        if depth == 0:
            return text[brace:at + 1]
    return text[brace:]


def public_declarations(header, name):
    """The public functions of a class as they are declared, without its destructor."""
    text = without_comments(header)
    text = text[text.index("class DLGLIB_API " + name):]
    text = text[text.index("public:") + len("public:"):text.index("private:")]
    for statement in text.split(";"):
        line = " ".join(statement.split())
        if "(" in line and "~" not in line and not line.startswith(("using ", "friend ")) and not line.endswith("= delete"):
            yield line


def name_of(declaration):
    return re.search(r"(operator=|\w+)\s*\(", declaration).group(1)


def definitions(text, name):
    """The functions of a class that a source defines: name, all between its parameters and its body, body."""
    for found in re.finditer(r"^[^\n]*\b" + name + r"::(operator=|~?\w+)\(", text, re.MULTILINE):
        brace = text.find("{", text.index(")", found.end()))
        if brace >= 0:
            yield found.group(1), text[found.end():brace], body_at(text, brace)


def is_forwarded(head, body, guarded):
    """Whether a function is one call of another one that is guarded."""
    delegated = re.search(r":\s*(\w+)\(", head)
    if delegated is not None and delegated.group(1) in guarded:
        return True
    found = re.fullmatch(r"\{\s*(?:return )?(\w+)\([^{}]*\);\s*\}", body)
    return found is not None and found.group(1) in guarded


def check_classes(root):
    for name, (header, sources) in CLASSES.items():
        declarations = list(public_declarations((root / header).read_text("utf-8"), name))
        public = {name_of(declaration) for declaration in declarations}
        for declaration in declarations:
            if not declaration.endswith("noexcept"):
                yield f"{header}: not noexcept: {declaration}"
        defined = [(source.relative_to(root), *found) for source in sorted(root.glob(sources))
                   for found in definitions(without_comments(source.read_text("utf-8")), name)]
        guarded = {function for _, function, head, body in defined if "edge::" in head + body} | WITHOUT_MEMORY
        for source, function, head, body in defined:
            passes = "edge::" in head + body or function in WITHOUT_MEMORY or is_forwarded(head, body, guarded)
            if function in public and not passes:
                yield f"{source}: not guarded: {name}::{function}"


def helpers_of(text):
    return set(re.findall(r"(\w+)\([^;{}]*\)\s*noexcept\s*\{", text))


def check_c_interface(root):
    shared = {name for header in root.glob(C_HELPERS) for name in helpers_of(without_comments(header.read_text("utf-8")))}
    for source in sorted(path for pattern in C_INTERFACE for path in root.glob(pattern)):
        text = without_comments(source.read_text("utf-8"))
        helpers = shared | helpers_of(text)
        passes = re.compile(r"\b(" + "|".join(sorted(helpers)) + r")\(") if helpers else re.compile(r"(?!)")
        for found in re.finditer(r"DLGLIB_CALL (\w+)\(", text):
            brace = text.index("{", found.end())
            if found.group(1) not in WITHOUT_MEMORY and not passes.search(body_at(text, brace)):
                yield f"{source.relative_to(root)}: not guarded: {found.group(1)}"


def exported_functions(root):
    """What the library exports of the three classes and the C interface, as the table writes it."""
    names = subprocess.run(["c++filt"], input=(root / EXPORTS).read_text(), text=True, capture_output=True, check=True).stdout
    names = re.sub(r"std::__cxx11::basic_string<[^<>]*<char>[^<>]*<char> >", "std::string", names)
    public = {name: {name_of(line) for line in public_declarations((root / header).read_text("utf-8"), name)}
              for name, (header, _) in CLASSES.items()}
    for line in sorted(set(names.splitlines())):
        member = re.match(r"(\w+)::(operator=|~?\w+)", line)
        if line.startswith("Dlglib") or member is not None and member.group(2) in public.get(member.group(1), ()):
            yield line


def check_table(root):
    text = "".join(source.read_text("utf-8") for source in sorted(root.glob(TABLE)))
    called = set(re.findall(r'"([^"\n]*)"', re.sub(r'"\s*\n\s*"', "", text)))
    for function in exported_functions(root):
        if function not in called:
            yield f"{TABLE}: not called: {function}"


def main():
    root = pathlib.Path(sys.argv[1])
    breaches = [*check_classes(root), *check_c_interface(root), *check_table(root)]
    for breach in breaches:
        print(breach)
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
