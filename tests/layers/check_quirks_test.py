#!/usr/bin/env python3
"""What check_quirks.py notices."""
import os
import subprocess
import sys
import tempfile
import unittest

CHECK = os.path.join(os.path.dirname(os.path.abspath(__file__)), "check_quirks.py")
HEAD = "| where | what | held by |\n|---|---|---|\n"


class CheckQuirks(unittest.TestCase):
    def run_on(self, page):
        with tempfile.TemporaryDirectory() as root:
            for folder in ("docs", "tests"):
                os.mkdir(os.path.join(root, folder))
            with open(os.path.join(root, "docs", "quirks.md"), "w", encoding="utf-8") as file:
                file.write(page)
            with open(os.path.join(root, "tests", "a_test.cpp"), "w", encoding="utf-8") as file:
                file.write("TEST_F(Grid, IsThere) {\n}\nTEST(\n    Far, Away) {}\n")
            return subprocess.run([sys.executable, "-B", CHECK, root], capture_output=True, text=True, check=False)

    def test_rows_whose_tests_exist_pass(self):
        self.assertEqual(self.run_on(HEAD + "| a `\\|` b | c | `Grid.IsThere`, `Far.Away` |\n").returncode, 0)

    def test_a_test_that_is_gone_is_noticed(self):
        done = self.run_on(HEAD + "| a | c | `Grid.IsGone` |\n")
        self.assertEqual((done.returncode, done.stdout), (1, "no such test: Grid.IsGone (a)\n"))

    def test_a_row_without_a_test_is_noticed(self):
        self.assertEqual(self.run_on(HEAD + "| a | `b.c` | none |\n").stdout, "no test: a\n")

    def test_a_page_without_rows_is_noticed(self):
        self.assertEqual(self.run_on("# Quirks\n").returncode, 1)


if __name__ == "__main__":
    unittest.main()
