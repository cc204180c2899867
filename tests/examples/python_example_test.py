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
    "DlglibFileRequest": ctypes.c_void_p,
    "DlglibFileRequest*": ctypes.POINTER(ctypes.c_void_p),
}


def types_of(arguments):
    """The ctypes of a list of arguments in C, with or without their names."""
    if arguments.strip() == "void":
        return []
    plain = [" ".join(argument.split()) for argument in arguments.split(",")]
    return [TYPES[argument if argument in TYPES else re.sub(r" ?\w+$", "", argument)] for argument in plain]


def header_text():
    return re.sub(r"//.*", "", (ROOT / "dlglib/dlglib_c.h").read_text())


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
        self.assertEqual(dlglib.FUNCTIONS, table)
        for name in dlglib.FUNCTIONS:
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
        if name == "DlglibFileRequestCreate":
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
