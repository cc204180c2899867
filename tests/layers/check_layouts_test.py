"""Sees check_layouts.py tell of a class that has grown and of virtual functions in another order.

    check_layouts_test.py <compiler>
"""
import os
import subprocess
import sys
import tempfile
import unittest

CHECK = os.path.join(os.path.dirname(os.path.abspath(__file__)), "check_layouts.py")
HEADER = """struct CvBase { virtual ~CvBase(); virtual void First(); virtual void Second(); int number; };
struct CvHidden { int number; };
"""


class Layouts(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = folder.name
        self.write("dlglib/exports.txt", "_ZN6CvBase5FirstEv\n")
        self.write("platform/suite/exports.txt", "")
        self.write("dlglib/dlglib.h", HEADER)
        renewed = self.run_check("--renew")
        self.assertEqual(renewed.returncode, 0, renewed.stdout + renewed.stderr)

    def write(self, path, text):
        os.makedirs(os.path.dirname(os.path.join(self.root, path)), exist_ok=True)
        with open(os.path.join(self.root, path), "w", encoding="ascii") as file:
            file.write(text)

    def run_check(self, *more):
        return subprocess.run([sys.executable, "-B", CHECK, sys.argv[1], self.root, *more], capture_output=True, text=True)

    def changes(self, old, new):
        self.write("dlglib/dlglib.h", HEADER.replace(old, new))
        run = self.run_check()
        return run.returncode, run.stdout.splitlines()[:-1]

    def test_the_same_layout_passes(self):
        self.assertEqual(self.changes("int number; };\nstruct", "int other; };\nstruct"), (0, []))

    def test_a_class_that_grows_is_told(self):
        code, lines = self.changes("int number; };\nstruct", "int numbers[2]; int more; };\nstruct")
        self.assertEqual(code, 1)
        self.assertIn("-CvBase: 16 bytes, aligned at 8", lines)
        self.assertIn("+CvBase: 24 bytes, aligned at 8", lines)

    def test_another_order_of_virtual_functions_is_told(self):
        code, lines = self.changes("virtual void First(); virtual void Second();", "virtual void Second(); virtual void First();")
        self.assertEqual(code, 1)
        self.assertIn("+CvBase: at 32 CvBase::Second", lines)

    def test_a_class_that_is_not_exported_may_change(self):
        self.assertEqual(self.changes("struct CvHidden { int", "struct CvHidden { long long"), (0, []))

    def test_a_list_without_classes_is_no_pass(self):
        self.write("dlglib/exports.txt", "DlglibVersion\n")
        self.assertEqual(self.run_check().returncode, 1)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
