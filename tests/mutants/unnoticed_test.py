"""Sees unnoticed.py find what a planted test leaves unnoticed, and nothing else, and refuse a list that is wrong.

The tree is configured by CMake as the real one is, so that the tool meets the files that CMake and Ninja write.

    unnoticed_test.py
"""

import contextlib
import io
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import unnoticed
from mutations import mutations

LISTS = """cmake_minimum_required(VERSION 3.25)
project(tree LANGUAGES CXX)
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_CXX_FLAGS "-O1 -w")
enable_testing()
add_library(core OBJECT dlglib/base/age.cpp)
target_include_directories(core PUBLIC ${PROJECT_SOURCE_DIR})
foreach(name age_test far_test)
  add_executable(${name} tests/core/base/${name}.cpp)
  target_link_libraries(${name} PRIVATE core)
  add_test(NAME ${name} COMMAND ${name} --gtest_output=xml:${name}.xml)
endforeach()
"""
HEADER = """#pragma once
inline int Half(int years) { return years / 2; }
bool IsOld(int years);
int Capped(int years);
unsigned Steps(unsigned years);
"""
SOURCE = """#include "dlglib/base/age.h"
// years >= 0 is said nowhere
bool IsOld(int years) { return years >= 60; }
int Capped(int years) { return years > 120 ? 120 : years; }
unsigned Steps(unsigned years) {
  unsigned steps = 0;
  for (unsigned at = 0; at != years; ++at) ++steps;
  return steps;
}
"""
# Nobody asks for 60 years.
NEAR = """#include "dlglib/base/age.h"
int main() { return IsOld(61) && !IsOld(59) && Capped(119) == 119 && Capped(125) == 120 && Steps(3) == 3 ? 0 : 1; }
"""
# What only a program notices that stands elsewhere.
FAR = """#include "dlglib/base/age.h"
int main() { return Capped(121) == 120 && Capped(120) == 120 && Half(10) == 5 && Half(9) == 4 ? 0 : 1; }
"""
BOUND = "dlglib/base/age.cpp: bool IsOld(int years) { return years {>= => >} 60; }"
OTHER = "dlglib/base/age.cpp: bool IsOld(int years) { return years >= {60 => 61}; }"
# Both ends of the cap are the same there.
SAME = "dlglib/base/age.cpp: int Capped(int years) { return years {> => >=} 120 ? 120 : years; }"


class Unnoticed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="mutants ")  # paths may hold blanks
        cls.addClassCleanup(folder.cleanup)
        cls.root = Path(folder.name) / "tree"
        cls.build = cls.root / "build/native"
        files = {"CMakeLists.txt": LISTS, "dlglib/base/age.h": HEADER, "dlglib/base/age.cpp": SOURCE,
                 "tests/core/base/age_test.cpp": NEAR, "tests/core/base/far_test.cpp": FAR}
        for path, text in files.items():
            (cls.root / path).parent.mkdir(parents=True, exist_ok=True)
            (cls.root / path).write_text(text, encoding="utf-8")
        for command in (["cmake", "-S", cls.root, "-B", cls.build, "-G", "Ninja"], ["cmake", "--build", cls.build]):
            subprocess.run(command, check=True, stdout=subprocess.DEVNULL)

    def setUp(self):
        unnoticed.LEAST_SECONDS = 5

    def run_with(self, listed, *words):
        """The answer and the lines of a run with a list of explained mutants."""
        path = self.root / "listed.txt"
        path.write_text("# why\n" + "\n".join(listed) + "\n", encoding="utf-8")
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            code = unnoticed.main([str(self.root), str(self.build), str(path), *words])
        return code, output.getvalue()

    def test_what_no_test_asks_for_is_found_and_nothing_else(self):
        code, said = self.run_with([], "1000")
        self.assertEqual(code, 1)
        self.assertEqual([line for line in said.splitlines() if line.startswith("not noticed")],
                         [f"not noticed, and not explained: {text}" for text in sorted([BOUND, OTHER])])

    def test_a_mutant_of_the_same_machine_code_or_of_none_is_not_counted(self):
        self.assertIn("0.0 % of 0 mutants", self.run_with([], "--only", SAME)[1])
        self.assertIn("0.0 % of 0 mutants", self.run_with([], "--only", "#include")[1])

    def test_a_mutant_that_hangs_is_noticed(self):
        self.assertIn("100.0 % of 1 mutants", self.run_with([], "--only", "years; {++ => --}at)")[1])

    def test_a_changed_header_is_built_into_whatever_reads_it(self):
        self.assertIn("100.0 % of 2 mutants", self.run_with([], "--only", "years {/ => *} 2", "{2 => 3}")[1])

    def test_a_reason_makes_it_sound(self):
        self.assertEqual(self.run_with([BOUND], "--only", BOUND), (0, f"  not noticed: {BOUND}\n0.0 % of 1 mutants noticed\n"))

    def test_too_few_are_no_success_even_with_reasons(self):
        self.assertEqual(self.run_with([BOUND, OTHER], "1000")[0], 1)

    def test_a_reason_for_what_is_noticed_or_gone_is_refused(self):
        noticed = "dlglib/base/age.cpp: unsigned steps = {0 => 1};"
        self.assertIn(f"explained, but noticed: {noticed}", self.run_with([noticed], "--only", noticed)[1])
        code, said = self.run_with(["dlglib/base/age.cpp: gone"], "--only", noticed)
        self.assertEqual(code, 1)
        self.assertIn("explained, but no source has it: dlglib/base/age.cpp: gone", said)

    def test_a_start_number_draws_the_same_ones_again(self):
        self.assertEqual(self.run_with([], "5", "7"), self.run_with([], "5", "7"))

    def test_a_program_that_fails_by_itself_is_told(self):
        unnoticed_test = self.build / "age_test"
        kept = unnoticed_test.read_bytes()
        self.addCleanup(unnoticed_test.write_bytes, kept)
        unnoticed_test.write_text("#!/bin/sh\nexit 1\n", encoding="utf-8")
        self.assertIn("fails without a mutant", self.run_with([], "1")[1])


class Places(unittest.TestCase):
    def changes(self, line):
        return sorted(mutation.expression for mutation in mutations("x.cpp", line))

    def test_what_no_program_does_stays(self):
        for line in ("// a < b", "/* 1 */", '#include "a1.h"', 'const char* x = "a && b" "7\\"8";', "std::vector<int> x;",
                     "bool operator==(const X&) const;", "static_assert(sizeof(X) == 8);", "char x = '1', y = '\\'';"):
            self.assertEqual(self.changes(line), [], line)

    def test_each_kind_of_change(self):
        self.assertEqual(self.changes("if (a < b) x();"), ["if (a {< => <=} b) x();", "if (a {< => >=} b) x();"])
        self.assertEqual(self.changes("if (IsOld(a)) x();"), ["if ({IsOld(a) => !(IsOld(a))}) x();"])
        self.assertEqual(self.changes("x = !y;"), ["x = {! => nothing}y;"])
        self.assertEqual(self.changes("return Name();"), ["return {Name() => {}};"])
        self.assertEqual(self.changes("return true;"), ["return {true => false};"])
        self.assertEqual(self.changes("x = 0.03928;"), [], "a number with a fraction bounds nothing by itself")
        self.assertEqual(self.changes("x = 0x7Fu + 8'192;"),
                         ["x = 0x7Fu + {8'192 => 8193};", "x = 0x7Fu {+ => -} 8'192;", "x = {0x7F => 0x80}u + 8'192;"])


if __name__ == "__main__":
    sys.exit(unittest.main())
