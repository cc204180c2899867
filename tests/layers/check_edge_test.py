"""Sees check_edge.py pass the tree as it is, and refuse each kind of hole in it.

    check_edge_test.py <root of the tree>
"""

import pathlib
import shutil
import sys
import tempfile
import unittest

import check_edge

ROOT = pathlib.Path(sys.argv.pop())


class CheckEdge(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        shutil.copytree(ROOT / "dlglib", self.root / "dlglib", ignore=shutil.ignore_patterns("*.bmp", "*.ico"))
        shutil.copytree(ROOT / "tests/robustness", self.root / "tests/robustness")

    def change(self, path, former, text):
        source = (self.root / path).read_text("utf-8")
        self.assertIn(former, source)
        (self.root / path).write_text(source.replace(former, text, 1), "utf-8")

    def breaches(self):
        checks = (check_edge.check_classes, check_edge.check_c_interface, check_edge.check_table)
        return [breach for check in checks for breach in check(self.root)]

    def test_the_tree_has_no_hole(self):
        self.assertEqual(self.breaches(), [])

    def test_a_function_that_may_throw_is_noticed(self):
        self.change("dlglib/utility/CvUtility.h", "void SetFileIO(int mode) noexcept;", "void SetFileIO(int mode);")
        self.assertEqual(self.breaches(), ["dlglib/utility/CvUtility.h: not noexcept: void SetFileIO(int mode)"])

    def test_a_function_beside_the_guard_is_noticed(self):
        self.change("dlglib/filsel/CvFilSelDlg.cpp", "return edge::Guarded(filsel::kCancelled, [&]", "return Run([&]")
        self.assertEqual(self.breaches(), ["dlglib/filsel/CvFilSelDlg.cpp: not guarded: CvFilSelDlg::DoModal"] * 2)

    def test_a_constructor_beside_the_guard_is_noticed(self):
        self.change("dlglib/utility/CvUtility.cpp", "edge::Made<State>", "Made<State>")
        self.assertEqual(self.breaches(), ["dlglib/utility/CvUtility.cpp: not guarded: CvUtility::CvUtility"])

    def test_a_function_of_the_c_interface_beside_the_guard_is_noticed(self):
        self.change("dlglib/dlglib_c.cpp", "return CheckText(Encoding::Sjis, mask, text);", "return Bare(mask, text);")
        self.assertEqual(self.breaches(), ["dlglib/dlglib_c.cpp: not guarded: DlglibCheckTextSjis"])

    def test_a_function_that_no_test_calls_is_noticed(self):
        self.change("tests/robustness/interface_calls_utility.cpp", '"CvUtility::DtoA(double)"', '"CvUtility::DtoA()"')
        self.assertEqual(self.breaches(), ["tests/robustness/interface_calls*.cpp: not called: CvUtility::DtoA(double)"])


if __name__ == "__main__":
    unittest.main()
