"""Sees check_called.py find what nothing of a product calls, and pass what something calls in each of the ways there are.

The tree is configured and built as the real one is, so that the check meets the files that CMake and the compiler write.

    check_called_test.py
"""

import contextlib
import io
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import check_called

LISTS = """cmake_minimum_required(VERSION 3.25)
project(tree LANGUAGES CXX)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_CXX_FLAGS "-O2")
include_directories(${PROJECT_SOURCE_DIR})
add_subdirectory(dlglib)
add_subdirectory(platform)
add_library(tests OBJECT tests/rules_test.cpp dlglib/rules.cpp)
"""
FILES = {
    "CMakeLists.txt": LISTS,
    "dlglib/CMakeLists.txt": "add_library(core OBJECT rules.cpp)\nadd_library(shell OBJECT CvShell.cpp)\n",
    "platform/CMakeLists.txt": "add_library(os_scripted OBJECT os_scripted.cpp)\n",
    "cmake/product.cmake": "set(public\n  dlglib/installed.h\n)\n",
    "dlglib/installed.h": "inline int ForClients() { return 1; }\n",
    "dlglib/rules.h": """#pragma once
// Unused( and Planted( are spoken of here only.
namespace rules {
int Called(int value);
int CalledInside(int value);
int Overloaded(int value);
int Overloaded(long value);
struct Shape {
  virtual ~Shape() = default;
  virtual int Corners() const = 0;
};
struct Square : Shape {
  int Corners() const override;
};
inline int Inline(int value) { return value + 2; }
}
""",
    "dlglib/rules.cpp": """#include "dlglib/rules.h"
namespace rules {
int CalledInside(int value) { return value * 3; }
int Called(int value) { return CalledInside(value) + 1; }
int Overloaded(int value) { return value + 4; }
int Overloaded(long) { return 5; }
int Square::Corners() const { return 4; }
}
""",
    "dlglib/CvShell.cpp": """#include "dlglib/rules.h"
static int Window() { return rules::Called(1) + rules::Inline(2) + rules::Overloaded(1) + rules::Overloaded(1L); }
int DllMain() { rules::Square square; rules::Shape* shape = &square; return Window() + shape->Corners(); }
""",
    "platform/os_scripted.cpp": "int Scripted() { return 1; }\n",
    "tests/rules_test.cpp": '#include "dlglib/rules.h"\nint Test() { return rules::Called(2); }\n',
}


class CheckCalled(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="called ")  # paths may hold blanks
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name) / "tree"
        self.build = self.root / "build"
        for path, text in FILES.items():
            self.put(path, text)

    def put(self, path, text):
        (self.root / path).parent.mkdir(parents=True, exist_ok=True)
        (self.root / path).write_text(text, encoding="utf-8")

    def add(self, path, line):
        self.put(path, FILES[path].replace("namespace rules {\n", "namespace rules {\n" + line + "\n", 1))

    def said(self, *listed, build=True):
        commands = [["cmake", "-S", self.root, "-B", self.build, "-G", "Ninja", "-DCMAKE_CXX_COMPILER_WORKS=ON"]]
        commands += [["cmake", "--build", self.build]] if build else []
        for command in commands:
            subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
        self.put("listed.txt", "# why\n" + "\n".join(listed) + "\n")
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            code = check_called.main(self.root, self.build, self.root / "listed.txt")
        self.assertEqual(code, 1 if output.getvalue() else 0)
        return output.getvalue()

    def test_a_product_that_calls_everything_is_sound(self):
        self.assertEqual(self.said(), "")

    def test_what_only_a_test_calls_is_found(self):
        self.add("dlglib/rules.h", "int Planted(int value);")
        self.add("dlglib/rules.cpp", "int Planted(int value) { return value - 1; }")
        self.put("tests/rules_test.cpp", '#include "dlglib/rules.h"\nint Test() { return rules::Planted(2); }\n')
        self.assertEqual(self.said(), "dlglib/rules.cpp: Planted: nothing of the product calls this\n")

    def test_an_inline_function_that_nothing_calls_is_found(self):
        self.add("dlglib/rules.h", "inline int Unused(int value) { return value; }")
        self.assertEqual(self.said(), "dlglib/rules.h: Unused: nothing of the product calls this\n")

    def test_a_name_that_others_bear_hides_no_symbol(self):
        self.add("dlglib/rules.h", "struct Other { int Called(); };")
        self.add("dlglib/rules.cpp", "int Other::Called() { return 1; }")
        self.assertEqual(self.said(), "dlglib/rules.cpp: Called: nothing of the product calls this\n")

    def test_a_reason_makes_it_sound_and_one_too_many_does_not(self):
        self.add("dlglib/rules.h", "inline int Unused(int value) { return value; }")
        self.assertEqual(self.said("dlglib/rules.h: Unused"), "")
        self.assertEqual(self.said("dlglib/rules.h: Unused", "dlglib/rules.cpp: Called"),
                         "dlglib/rules.cpp: Called: in the list, but called or gone\n")

    def test_objects_that_are_not_there_are_missed(self):
        self.assertIn("not all objects", self.said(build=False))


if __name__ == "__main__":
    sys.exit(unittest.main())
