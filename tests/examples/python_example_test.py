"""The example in Python: its table of functions and its numbers against the C header, and what it makes of the library's answers.

    python_example_test.py <root of the tree>
"""

import ctypes
import re
import sys
import unittest
from pathlib import Path

ROOT = Path(sys.argv.pop(1))
sys.path.insert(0, str(ROOT / "examples/python"))

import choose_model  # noqa: E402
import dlglib  # noqa: E402

# What each C type of the header, or of a plain table in C, is for ctypes.
TYPES = {
    "int32_t": ctypes.c_int32,
    "uint32_t": ctypes.c_uint32,
    "DlglibResult": ctypes.c_int32,
    "double": ctypes.c_double,
    "const char*": ctypes.c_char_p,
    "char*": ctypes.c_char_p,
    "int32_t*": ctypes.POINTER(ctypes.c_int32),
    "double*": ctypes.POINTER(ctypes.c_double),
    "void*": ctypes.c_void_p,
    "void**": ctypes.POINTER(ctypes.c_void_p),
    "const int32_t*": ctypes.POINTER(ctypes.c_int32),
    "DlglibGridChanged": dlglib.GRID_CHANGED,
    "DlglibGridPasteCheck": dlglib.GRID_PASTE_CHECK,
}
for handle in ("DlglibFileRequest", "DlglibGrid", "DlglibMessageZone", "DlglibRecentList"):
    TYPES.update({handle: ctypes.c_void_p, handle + "*": ctypes.POINTER(ctypes.c_void_p)})


def types_of(arguments):
    """The ctypes of a list of arguments in C, with or without their names."""
    if arguments.strip() == "void":
        return []
    plain = [" ".join(argument.split()) for argument in arguments.split(",")]
    return [TYPES[argument if argument in TYPES else re.sub(r" ?\w+$", "", argument)] for argument in plain]


def header_text():
    headers = ("dlglib_c_types.h", "dlglib_c.h", "dlglib_c_grid.h")
    return "".join(re.sub(r"//.*", "", (ROOT / "dlglib" / name).read_text()) for name in headers)


def functions_of_header():
    found = re.findall(r"DLGLIB_C_API (\w+) DLGLIB_CALL (\w+)\(([^)]*)\);", header_text())
    return {name: (TYPES[result], types_of(arguments)) for result, name, arguments in found}


class TableTest(unittest.TestCase):
    def test_every_function_is_declared_as_in_the_header(self):
        header = functions_of_header()
        self.assertGreater(len(header), 50)
        for name, arguments in dlglib.FUNCTIONS.items():
            self.assertEqual((ctypes.c_int32, arguments), header.get(name), name)

    def test_no_function_is_missing(self):
        header = functions_of_header()
        wanted = {n for n in header if not (n.endswith("Sjis") and n[:-4] + "Utf8" in header)}
        self.assertEqual(wanted, set(dlglib.FUNCTIONS))

    def test_the_program_that_loads_the_dll_by_name_declares_the_same(self):
        source = (ROOT / "tests/sdk/by_name.c").read_text().replace("\\\n", " ")
        table = {name: types_of(arguments) for name, arguments in re.findall(r"FUNCTION\((Dlglib\w+), \(([^)]*)\)\)", source)}
        # The grid and what belongs to it want a window; tests/windows/grid/c_grid_test.cpp calls them.
        windowless = {name: types for name, types in dlglib.FUNCTIONS.items() if not re.match("Dlglib(Grid|MessageZone|RecentList)", name)}
        self.assertEqual(windowless, table)
        for name in windowless:
            self.assertRegex(source, r"(?<!FUNCTION\()\b" + name + r"\(", name + " is called")

    def test_numbers_are_those_of_the_header(self):
        header = dict(re.findall(r"DLGLIB_(\w+) = (-?\d+)", header_text()))
        numbers = {name: value for name, value in vars(dlglib).items() if name.isupper() and isinstance(value, int)}
        self.assertGreater(len(numbers), 15)
        for name, value in numbers.items():
            self.assertEqual(int(header[name]), value, name)


class PlayedLibrary:
    """Answers as the DLL does, from planned texts and results."""

    def __init__(self):
        self.calls = []
        self.results = {}
        self.numbers = {"DlglibFileRequestCount": 2}
        self.texts = {"DlglibResultTextUtf8": "だめ".encode()}

    def __getattr__(self, name):
        def function(*arguments):
            return self.answer(name, arguments)

        return function

    def answer(self, name, arguments):
        if len(arguments) != len(dlglib.FUNCTIONS[name]):
            raise TypeError(name)
        self.calls.append((name, arguments))
        if name.endswith("Create") or name == "DlglibRecentListCreateUtf8":
            arguments[0]._obj.value = 77
        if name in self.numbers:
            arguments[-1]._obj.value = self.numbers[name]
        if name == "DlglibFileRequestNameUtf8":
            self.texts[name] = f"C:\\表\\{arguments[1]}.MDL".encode()
        if name == "DlglibCheckScale":
            arguments[1]._obj.value = 0.5
        return self.results.get(name, 0) or self.give(name, arguments)

    def give(self, name, arguments):
        if dlglib.FUNCTIONS[name][-3:] != list(dlglib._ROOM):
            return 0
        text = self.texts[name]
        size, buffer, needed = arguments[-3:]
        if size == 0:
            needed._obj.value = len(text) + 1
        elif size <= len(text):
            return -4
        else:
            buffer.value = text
        return 0


class LibraryTest(unittest.TestCase):
    def setUp(self):
        self.dll = PlayedLibrary()
        self.library = dlglib.Library(self.dll)

    def test_a_text_is_asked_for_with_the_room_that_it_needs(self):
        self.dll.texts["DlglibVersionText"] = b"1.2.3"
        self.assertEqual(self.library.version(), "1.2.3")
        self.dll.texts["DlglibUtf8ToEuc"] = b"\xc9\xbd"
        self.assertEqual(self.library.to_euc("表"), b"\xc9\xbd")
        self.assertEqual(self.dll.calls[-1][1][0], "表".encode())
        self.dll.texts["DlglibStoredToScreenUtf8"] = b""
        self.assertEqual(self.library.stored_to_screen(b""), "")

    def test_checks_answer_true_or_false(self):
        self.assertTrue(self.library.is_file_name("a"))
        self.dll.results["DlglibCheckFileNameUtf8"] = dlglib.REFUSED
        self.assertFalse(self.library.is_file_name("a*", wildcards=True))
        self.assertEqual(self.dll.calls[-1][1], (b"a*", 1))
        self.assertEqual(self.library.scale("1/2"), 0.5)
        self.dll.results["DlglibCheckScale"] = dlglib.REFUSED
        self.assertIsNone(self.library.scale("x"))

    def test_kinds_and_lines_that_could_not_be_read_are_lists(self):
        self.dll.numbers.update({"DlglibKindCount": 2, "DlglibUnreadLineCount": 1})
        self.dll.texts.update({"DlglibKindKeywordUtf8": "#表#".encode(), "DlglibUnreadLineUtf8": b"x", "DlglibUnreadLineFileUtf8": b"f"})
        self.assertEqual(self.library.kinds(), ["#表#", "#表#"])
        self.assertEqual(self.library.unread_lines(), [("f", 0, "x")])
        self.library.define_kind("#A#", "C:/a", "*", 1, "図")
        self.assertEqual(self.dll.calls[-1], ("DlglibDefineFullKindUtf8", (b"#A#", b"C:/a", b"*", 1, "図".encode())))
        self.library.remove_kind("#A#")
        self.assertEqual(self.dll.calls[-1][0], "DlglibRemoveKindUtf8")

    def test_a_grid_is_attached_filled_and_told_of(self):
        self.dll.numbers["DlglibGridItemCount"] = 3
        self.dll.texts["DlglibGridTextUtf8"] = "表".encode()
        told = []
        with self.library.grid() as grid:
            grid.attach(5, 1001, 2, 3, 10, text_limits=[4, 20])
            self.assertEqual(list(self.dll.calls[-1][1][4]), [4, 20])
            grid.set_column(1, "品名", 6.0)
            self.assertEqual(self.dll.calls[-1][1][1:], (1, "品名".encode(), 6.0, 0, 0, dlglib.COLUMN_TEXT))
            grid.set_edit(1)
            grid.set_list(1, 1, ["a", "b"])
            self.assertEqual(self.dll.calls[-1][1][3], b"a\nb")
            grid.set_cell(0, 1, "表")
            self.assertEqual((grid.cell(0, 1), grid.number("ItemCount")), ("表", 3))
            self.assertTrue(grid.message(0x2B, 99))
            self.dll.results["DlglibGridMessage"] = dlglib.NOT_MINE
            self.assertFalse(grid.message(0x2B, 99))
            grid.on_changed(lambda row, rows: told.append((row, rows)))
            self.dll.calls[-1][1][1](None, 2, 1)
            grid.on_paste(lambda row, col, text: text == "表")
            self.assertEqual(self.dll.calls[-1][1][1](None, 0, 0, "表".encode()), 1)
            grid.on_changed(None)
            grid.on_paste(None)
        self.assertEqual(told, [(2, 1)])
        self.assertEqual(self.dll.calls[-1][0], "DlglibGridDestroy")

    def test_a_zone_and_a_recent_list_are_let_go(self):
        self.dll.numbers["DlglibRecentListCount"] = 1
        self.dll.texts["DlglibRecentListEntryUtf8"] = b"a"
        with self.library.message_zone(5) as zone:
            zone.show("表")
            zone.error(None)
        self.assertEqual(self.dll.calls[-1][0], "DlglibMessageZoneDestroy")
        with self.library.recent_list(dlglib.RECENT_NAMES, "#A#") as recent:
            recent.add("a")
            self.assertTrue(recent.remove("a"))
            self.assertEqual(recent.entries(), ["a"])
            recent.write()
        self.assertEqual(self.dll.calls[-1][0], "DlglibRecentListDestroy")

    def test_a_missing_input_file_is_none(self):
        self.dll.texts["DlglibAskInputPathUtf8"] = b"C:\\a"
        self.assertEqual(self.library.ask_input_path(None, "#A#", "a"), "C:\\a")
        self.dll.results["DlglibAskInputPathUtf8"] = dlglib.REFUSED
        self.assertIsNone(self.library.ask_input_path(None, "#A#", "a"))

    def test_errors_are_raised_with_their_text(self):
        self.dll.results["DlglibCheckModelNameUtf8"] = dlglib.TOO_LONG
        with self.assertRaisesRegex(dlglib.DlglibError, "だめ") as caught:
            self.library.is_model_name("a")
        self.assertEqual(caught.exception.result, dlglib.TOO_LONG)
        with self.assertRaises(ValueError):
            self.library.is_model_name("a\0b")

    def test_the_program_gives_what_was_chosen(self):
        self.assertEqual(choose_model.choose_models(self.library, "C:\\表"), ["C:\\表\\0.MDL", "C:\\表\\1.MDL"])
        self.assertEqual(self.dll.calls[0], ("DlglibDefineKindUtf8", (b"#MODEL#", "C:\\表".encode(), b"*.MDL")))
        self.assertEqual(self.dll.calls[-1][0], "DlglibFileRequestDestroy")
        self.dll.results["DlglibFileRequestRun"] = dlglib.CANCELLED
        self.assertEqual(choose_model.choose_models(self.library, "C:\\表"), [])

    def test_a_request_is_let_go_after_an_error_too(self):
        self.dll.results["DlglibFileRequestRun"] = -9
        with self.assertRaises(dlglib.DlglibError):
            choose_model.choose_models(self.library, "C:\\表")
        self.assertEqual(self.dll.calls[-1][0], "DlglibFileRequestDestroy")

    def test_every_method_calls_with_the_arguments_of_the_table(self):
        self.dll.texts.update({name: b"" for name in dlglib.FUNCTIONS if name not in self.dll.texts})
        self.library.load_session("s")
        for method in (self.library.real_path, self.library.internal_path, self.library.short_name,
                       self.library.path_of_short_name):
            self.assertEqual(method("#MODEL#", "a"), "")
        self.assertEqual((self.library.from_euc(b""), self.library.screen_to_stored(""), self.library.scale_text(1)), ("", b"", ""))
        self.assertTrue(self.library.exists(None, "a"))
        self.assertTrue(self.library.is_text_of(dlglib.DIGITS, "1"))
        self.assertTrue(self.library.is_number("1", dlglib.REAL, 0, 1))
        with self.library.file_request() as request:
            request.set_initial_name("a")
            request.set_list_file(None)
            request.set_mode(dlglib.NAME_FILE)
            request.set_fixed_folder(True)
            request.set_owner(None)


if __name__ == "__main__":
    unittest.main()
