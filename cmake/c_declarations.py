#!/usr/bin/env python3
"""What other languages, and programs that load the library by name, need to know of the C interface, made from its headers.

  c_declarations.py check <root of the tree>   answers 1 and names each file that is not what the headers say
  c_declarations.py renew <root of the tree>   writes the files anew (./build.sh --exports does it)

  dlglib/dlglib_c_names.h       a type for a pointer to each function, and the list of their names
  examples/csharp/Dlglib.cs     declarations for C#: the functions for UTF-8, and those without texts
  examples/vba/Dlglib.bas       declarations for VBA: the functions for Shift_JIS, and those without texts
  examples/node/declarations.js  declarations for Node.js: those for UTF-8, and those without texts

The list of what the DLL exports (dlglib/exports.txt) is compared with the headers as well.
"""
import pathlib
import re
import sys

HEADERS = ("dlglib/dlglib_c_types.h", "dlglib/dlglib_c.h", "dlglib/dlglib_c_grid.h")
EXPORTS = "dlglib/exports.txt"
HANDLES = ("DlglibFileRequest", "DlglibGrid", "DlglibMessageZone", "DlglibRecentList")
CALLBACKS = ("DlglibGridChanged", "DlglibGridPasteCheck")
# Arguments that hold bytes of an encoding that no language converts by itself.
BYTES = {"sjis", "euc", "stored", "utf8"}
LONGEST_LINE = 110


class Function:
    def __init__(self, answer, name, arguments):
        self.answer, self.name = answer, name
        plain = " ".join(arguments.split())
        self.arguments = [] if plain == "void" else [re.fullmatch(r"(.*?)\s*(\w+)", part.strip()).groups()
                                                     for part in plain.split(",")]


def without_comments(text):
    return re.sub(r"//[^\n]*", "", text)


def functions_of(root):
    found = []
    for header in HEADERS:
        text = without_comments((root / header).read_text("utf-8"))
        for match in re.finditer(r"DLGLIB_C_API\s+(\w+)\s+DLGLIB_CALL\s+(\w+)\(([^)]*)\)", text):
            found.append(Function(*match.groups()))
    return found


def numbers_of(root):
    text = "".join(without_comments((root / header).read_text("utf-8")) for header in HEADERS)
    return re.findall(r"\b(DLGLIB_\w+) = (-?\d+)", text)


def chosen(functions, suffix, other):
    """The functions of one encoding, and those of none."""
    names = {function.name for function in functions}
    return [function for function in functions
            if not (function.name.endswith(other) and function.name[:-len(other)] + suffix in names)]


# ---- C

def names_header(functions):
    lines = ["// Types for those who look the functions of the C interface up by their names. Made from the headers; ./build.sh",
             "// --exports writes it anew.", "//",
             "//   DlglibVersionFunction version = (DlglibVersionFunction)GetProcAddress(library, \"DlglibVersion\");", "//",
             "// DLGLIB_FUNCTIONS(USE) expands to USE(DlglibVersion) and so on for all functions.", "#pragma once", "",
             '#include "dlglib/dlglib_c.h"', "", "// NOLINTBEGIN(modernize-redundant-void-arg, modernize-use-using)", "// clang-format off", ""]
    for function in functions:
        arguments = ", ".join(f"{kind} {name}" for kind, name in function.arguments) or "void"
        lines.append(f"/// {function.name}.")
        lines.append(f"typedef {function.answer}(DLGLIB_CALL* {function.name}Function)({arguments});")
    lines += ["", "/// All functions.", "#define DLGLIB_FUNCTIONS(USE) \\"]
    lines += [f"  USE({function.name}) \\" for function in functions[:-1]] + [f"  USE({functions[-1].name})"]
    return "\n".join(lines + ["", "// clang-format on", "// NOLINTEND(modernize-redundant-void-arg, modernize-use-using)", ""])


# ---- C#

def csharp_kind(function, kind, name):
    if kind in ("const char*", "char*"):
        return csharp_text(function, kind, name)
    if kind in CALLBACKS:
        return kind
    if kind.rstrip("*") in HANDLES or kind == "void*":
        return "out IntPtr" if kind.endswith("*") and kind != "void*" else "IntPtr"
    return {"int32_t": "int", "DlglibResult": "int", "uint32_t": "uint", "double": "double", "int32_t*": "out int",
            "double*": "out double", "const int32_t*": "int[]"}[kind]


def csharp_text(function, kind, name):
    if kind == "char*" or name in BYTES - {"utf8"} or function.name.endswith("Sjis"):
        return "byte[]"
    form = "LPUTF8Str" if function.name.endswith("Utf8") or name == "utf8" else "LPStr"
    return f"[MarshalAs(UnmanagedType.{form})] string"


def csharp(functions, numbers):
    lines = ["// The C interface of the library for C#. Made from its headers; ./build.sh --exports writes it anew.", "//",
             "// Texts are given as strings; stored texts (EUC-JP) and texts that are asked for are bytes with a zero byte at their",
             "// end. A delegate that the library keeps must be kept by the program too.", "using System;",
             "using System.Runtime.InteropServices;", "", "public static class Dlglib", "{",
             '    private const string Library = "crvndlglib.dll";', ""]
    lines += [f"    public const int {name} = {value};" for name, value in numbers]
    lines += ["", "    [UnmanagedFunctionPointer(CallingConvention.StdCall)]",
              "    public delegate void DlglibGridChanged(IntPtr context, int row, int rows);",
              "    [UnmanagedFunctionPointer(CallingConvention.StdCall)]",
              "    public delegate int DlglibGridPasteCheck(IntPtr context, int row, int col, IntPtr text);"]
    for function in chosen(functions, "Utf8", "Sjis"):
        arguments = ", ".join(f"{csharp_kind(function, kind, name)} {csharp_name(name)}" for kind, name in function.arguments)
        lines += ["", "    [DllImport(Library, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]",
                  f"    public static extern int {function.name}({arguments});"]
    return "\n".join(lines + ["}", ""])


def csharp_name(name):
    return "@" + name if name in ("fixed", "checked") else name


# ---- VBA

def vba_argument(function, kind, name):
    if kind in ("const char*", "char*"):
        foreign = name in ("euc", "stored", "utf8") or function.name.endswith(("Euc", "Utf8")) and kind == "char*"
        return f"ByVal {name} As " + ("LongPtr" if foreign else "String")
    if kind == "const int32_t*":
        return f"ByRef {name} As Any"
    if kind in ("int32_t*", "double*"):
        return f"ByRef {name} As " + ("Long" if kind == "int32_t*" else "Double")
    if kind == "void*" or kind in HANDLES + CALLBACKS:
        return f"ByVal {name} As LongPtr"
    if kind.endswith("*"):
        return f"ByRef {name} As LongPtr"
    return f"ByVal {name} As " + ("Double" if kind == "double" else "Long")


def vba(functions, numbers):
    lines = ['Attribute VB_Name = "Dlglib"',
             "' The C interface of the library for 64-bit VBA. Made from its headers; build.sh --exports writes it anew.", "'",
             "' VBA hands its texts over in the machine's own encoding: the functions for Shift_JIS take them on a Japanese machine.",
             "' Null is vbNullString, or 0 for a LongPtr; a buffer is a text that is long enough. Callbacks are given by AddressOf.",
             "Option Explicit", ""]
    lines += [f"Public Const {name} As Long = {value}" for name, value in numbers]
    lines.append("")
    for function in chosen(functions, "Sjis", "Utf8"):
        arguments = [vba_argument(function, kind, name) for kind, name in function.arguments]
        lines += vba_lines(f"Public Declare PtrSafe Function {function.name} Lib \"crvndlglib.dll\" (", arguments)
    return "\r\n".join(lines + [""])


def vba_lines(start, arguments):
    lines, line = [], start
    for index, argument in enumerate(arguments):
        part = argument + (", " if index + 1 < len(arguments) else "")
        if len(line) + len(part) > LONGEST_LINE:
            lines.append(line + "_")
            line = "    "
        line += part
    return lines + [line + ") As Long"]


# ---- Node.js

def node_kind(function, kind, name):
    if kind == "char*" or kind == "const char*" and csharp_text(function, kind, name) == "byte[]":
        return ("_Out_ " if kind == "char*" else "const ") + "uint8_t*"
    if kind in CALLBACKS:
        return kind + "*"
    if kind.rstrip("*") in HANDLES or kind == "void*":
        return "_Out_ void**" if kind.endswith("*") and kind != "void*" else "void*"
    return {"DlglibResult": "int32_t", "int32_t*": "_Out_ int32_t*", "double*": "_Out_ double*"}.get(kind, kind)


def node(functions, numbers):
    lines = ["// The C interface of the library for Node.js, as koffi reads it. Made from its headers; ./build.sh --exports writes it anew.",
             "//", "// Texts are given as strings; stored texts (EUC-JP) and texts that are asked for are buffers with a zero byte at their end.",
             '"use strict";', "", "exports.numbers = {"]
    lines += [f"  {name}: {value}," for name, value in numbers]
    lines += ["};", "", "exports.callbacks = [",
              '  "void __stdcall DlglibGridChanged(void* context, int32_t row, int32_t rows)",',
              '  "int32_t __stdcall DlglibGridPasteCheck(void* context, int32_t row, int32_t col, const char* text)",', "];", "",
              "exports.functions = ["]
    for function in chosen(functions, "Utf8", "Sjis"):
        arguments = ", ".join(f"{node_kind(function, kind, name)} {name}" for kind, name in function.arguments) or "void"
        lines.append(f'  "int32_t __stdcall {function.name}({arguments})",')
    return "\n".join(lines + ["];", ""])


# ----

def made(root):
    functions, numbers = functions_of(root), numbers_of(root)
    return {"dlglib/dlglib_c_names.h": names_header(functions), "examples/csharp/Dlglib.cs": csharp(functions, numbers),
            "examples/vba/Dlglib.bas": vba(functions, numbers), "examples/node/declarations.js": node(functions, numbers)}


def breaches(root):
    for path, text in made(root).items():
        file = root / path
        if not file.exists() or file.read_bytes() != text.encode():
            yield f"{path}: not what the headers say. When they are meant: ./build.sh --exports"
    exported = {line for line in (root / EXPORTS).read_text().split() if line.startswith("Dlglib")}
    for name in sorted(exported ^ {function.name for function in functions_of(root)}):
        yield f"{EXPORTS}: {name} is " + ("not declared" if name in exported else "missing")


def main():
    order, root = sys.argv[1], pathlib.Path(sys.argv[2])
    if order == "renew":
        for path, text in made(root).items():
            (root / path).parent.mkdir(parents=True, exist_ok=True)
            (root / path).write_bytes(text.encode())
        return 0
    found = list(breaches(root))
    for breach in found:
        print(breach)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
