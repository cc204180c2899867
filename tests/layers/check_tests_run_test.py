"""Sees check_tests_run.py refuse every kind of test that is left out, and pass a tree that leaves none out.

The tree is configured by CMake as the real one is, so that the check meets the files that CMake writes.

    check_tests_run_test.py
"""

import contextlib
import io
import subprocess
import tempfile
import unittest
from pathlib import Path

import check_tests_run

# GoogleTest is a library of that name only; nothing is built.
LISTS = """cmake_minimum_required(VERSION 3.25)
project(tree LANGUAGES CXX)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
enable_testing()
add_library(gtest STATIC tests/empty.cpp)
add_executable(sound_test tests/sound_test.cpp tests/helper.cpp)
target_link_libraries(sound_test PRIVATE gtest)
add_test(NAME sound_test COMMAND sound_test --flag)
"""


class CheckTestsRun(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="tests run ")  # paths may hold blanks
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name) / "tree"
        self.build = self.root / "build/native"
        self.lists = LISTS
        for name in ("empty.cpp", "sound_test.cpp", "helper.cpp"):
            self.put(f"tests/{name}")

    def put(self, path, text=""):
        (self.root / path).parent.mkdir(parents=True, exist_ok=True)
        (self.root / path).write_text(text, encoding="utf-8")

    def configure(self):
        self.put("CMakeLists.txt", self.lists)
        command = ["cmake", "-S", self.root, "-B", self.build, "-G", "Ninja", "-DCMAKE_CXX_COMPILER_WORKS=ON"]
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL)

    def said(self, *builds):
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            code = check_tests_run.main(self.root, *(builds or [self.build]))
        self.assertEqual(code, 1 if output.getvalue() else 0)
        return output.getvalue()

    def test_a_tree_whose_tests_all_run_is_sound(self):
        self.configure()
        self.assertEqual(self.said(), "")

    def test_a_test_that_no_build_compiles_is_noticed(self):
        self.put("tests/windows/lost_test.cpp")
        self.configure()
        self.assertRegex(self.said(), r"lost_test\.cpp: no build compiles this test\n$")

    def test_a_test_in_a_program_that_is_not_started_is_noticed(self):
        self.put("tests/idle_test.cpp")
        self.lists += "add_executable(idle_test tests/idle_test.cpp)\n"
        self.configure()
        self.assertRegex(self.said(), r"idle_test\.cpp: CTest starts no program with this test\n$")

    def test_a_test_in_a_library_that_no_program_links_is_noticed(self):
        self.put("tests/loose_test.cpp")
        self.lists += "add_library(loose OBJECT tests/loose_test.cpp)\n"
        self.configure()
        self.assertRegex(self.said(), r"loose_test\.cpp: CTest starts no program with this test\n$")

    def test_a_test_program_that_is_not_started_is_noticed(self):
        self.put("tests/checks.cpp")
        self.lists += "add_executable(checks tests/checks.cpp)\ntarget_link_libraries(checks PRIVATE gtest)\n"
        self.configure()
        self.assertRegex(self.said(), r"/checks: CTest does not start this test program\n$")

    def test_a_program_whose_name_starts_like_that_of_a_test_is_noticed(self):
        self.put("tests/checks.cpp")
        self.lists += "add_executable(sound tests/checks.cpp)\ntarget_link_libraries(sound PRIVATE gtest)\n"
        self.configure()
        self.assertRegex(self.said(), r"/sound: CTest does not start this test program\n$")

    def test_a_test_that_one_of_two_builds_runs_is_no_breach(self):
        self.configure()
        first = self.build
        self.build = self.root / "build/other"
        self.put("tests/second_test.cpp")
        self.lists += "add_executable(second_test tests/second_test.cpp)\nadd_test(NAME second_test COMMAND second_test)\n"
        self.configure()
        self.assertEqual(self.said(first, self.build), "")
        self.assertIn("second_test.cpp: no build compiles", self.said(first))

    def test_a_project_inside_is_left_to_its_own_builds(self):
        self.put("tests/sdk/CMakeLists.txt", "# A project of its own.\nproject(client)\n")
        self.put("tests/sdk/client_test.cpp")
        self.configure()
        self.assertEqual(self.said(), "")

    def test_a_build_that_is_not_configured_is_named(self):
        self.configure()
        missing = self.root / "build/missing"
        self.assertRegex(self.said(self.build, missing), r"build/missing: no compile database")


if __name__ == "__main__":
    unittest.main()
