"""Sees cmake/c_declarations.py tell of declarations that have drifted from the headers.

    c_declarations_test.py <root of the tree>
"""
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(sys.argv.pop(1))
SCRIPT = ROOT / "cmake/c_declarations.py"
FILES = ("dlglib/dlglib_c_types.h", "dlglib/dlglib_c.h", "dlglib/dlglib_c_grid.h", "dlglib/exports.txt")


class Declarations(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        (self.root / "dlglib").mkdir()
        for path in FILES:
            shutil.copy(ROOT / path, self.root / path)
        self.assertEqual(self.run_script("renew"), "")

    def run_script(self, order):
        return subprocess.run([sys.executable, "-B", SCRIPT, order, self.root], capture_output=True, text=True, check=False).stdout

    def read(self, path):
        return (self.root / path).read_bytes().decode()

    def change(self, path, old, new):
        text = self.read(path)
        self.assertIn(old, text)
        (self.root / path).write_bytes(text.replace(old, new, 1).encode())

    def test_what_was_written_is_right(self):
        self.assertEqual(self.run_script("check"), "")

    def test_a_changed_argument_is_noticed_in_all_languages(self):
        self.change("dlglib/dlglib_c.h", "DlglibCheckChar(uint32_t mask, uint32_t code)", "DlglibCheckChar(uint32_t mask)")
        told = self.run_script("check")
        for path in ("dlglib/dlglib_c_names.h", "examples/csharp/Dlglib.cs", "examples/vba/Dlglib.bas", "examples/node/declarations.js"):
            self.assertIn(path + ": not what the headers say", told)

    def test_a_function_that_is_not_exported_is_noticed(self):
        self.change("dlglib/exports.txt", "DlglibCheckChar\n", "")
        self.assertEqual(self.run_script("check"), "dlglib/exports.txt: DlglibCheckChar is missing\n")

    def test_texts_are_declared_in_their_encoding(self):
        sharp, basic = self.read("examples/csharp/Dlglib.cs"), self.read("examples/vba/Dlglib.bas")
        self.assertIn("int DlglibRemoveKindUtf8([MarshalAs(UnmanagedType.LPUTF8Str)] string keyword);", sharp)
        self.assertIn("int DlglibEucToUtf8(byte[] euc, int bufferSize, byte[] utf8, out int needed);", sharp)
        self.assertIn("int DlglibCheckScale([MarshalAs(UnmanagedType.LPStr)] string text, out double scale);", sharp)
        self.assertNotIn("RemoveKindSjis", sharp)
        script = self.read("examples/node/declarations.js")
        self.assertIn('"int32_t __stdcall DlglibRemoveKindUtf8(const char* keyword)",', script)
        self.assertIn("DlglibEucToUtf8(const uint8_t* euc, int32_t bufferSize, _Out_ uint8_t* utf8, _Out_ int32_t* needed)", script)
        self.assertIn("DlglibGridCreate(_Out_ void** grid)", script)
        self.assertNotIn("RemoveKindSjis", script)
        self.assertIn('DlglibRemoveKindSjis Lib "crvndlglib.dll" (ByVal keyword As String) As Long', basic)
        self.assertNotIn("RemoveKindUtf8", basic)

    def test_no_line_of_basic_is_left_open(self):
        for line in self.read("examples/vba/Dlglib.bas").split("\r\n"):
            self.assertLess(len(line), 130)
            if line.startswith("Public Declare") and not line.endswith("_"):
                self.assertTrue(line.endswith(") As Long"), line)


if __name__ == "__main__":
    unittest.main()
