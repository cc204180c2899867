#!/usr/bin/env python3
"""Sees check_folders.py refuse a circle and each include that goes past an entrance, and pass a sound tree."""
import os
import subprocess
import sys
import tempfile

CHECK = os.path.join(os.path.dirname(os.path.abspath(__file__)), "check_folders.py")
SOUND = {
    "dlglib/base/text.h": [],
    "dlglib/utility/CvUtility.h": [],
    "dlglib/utility/CvUtility.cpp": ["dlglib/utility/CvUtility.h", "dlglib/utility/rules/rule.h", "dlglib/filedialog/window/CvFileDialog.h"],
    "dlglib/utility/rules/rule.h": ["dlglib/base/text.h"],
    "dlglib/utility/toolbar/CvToolTip.h": ["dlglib/base/text.h"],
    "dlglib/listcontrol/CvListControl.h": ["dlglib/utility/CvUtility.h"],
    "dlglib/listcontrol/grid.h": ["dlglib/base/text.h"],
    "dlglib/filedialog/dialogs/CvMdlTitle.h": ["dlglib/listcontrol/CvListControl.h"],
    "dlglib/filedialog/window/CvFileDialog.h": ["dlglib/filedialog/dialogs/CvMdlTitle.h", "dlglib/utility/toolbar/CvToolTip.h"],
}


def run(sources):
    with tempfile.TemporaryDirectory() as root:
        for path, included in sources.items():
            os.makedirs(os.path.dirname(os.path.join(root, path)), exist_ok=True)
            with open(os.path.join(root, path), "w", encoding="utf-8") as file:
                file.write("".join(f'#include "{name}"\n' for name in included))
        return subprocess.run([sys.executable, "-B", CHECK, root], capture_output=True, text=True, check=False)


def with_include(path, included):
    return {**SOUND, path: SOUND.get(path, []) + [included]}


failures = []


def expect(what, result, status, text):
    if result.returncode != status or text not in result.stdout:
        failures.append(f"{what}: answers {result.returncode} and says {result.stdout!r} {result.stderr!r}")


expect("a sound tree", run(SOUND), 0, "")
expect("no tree", run({}), 2, "no sources")
expect("a circle", run(with_include("dlglib/base/text.h", "dlglib/utility/rules/rule.h")), 1, "circle: ")
expect("a circle over an entrance", run(with_include("dlglib/listcontrol/CvListControl.h", "dlglib/filedialog/dialogs/CvMdlTitle.h")), 1,
       "circle: ")
for path, included in [
    ("dlglib/filedialog/window/CvFileDialog.cpp", "dlglib/utility/rules/rule.h"),
    ("dlglib/utility/CvUtility.cpp", "dlglib/filedialog/dialogs/CvMdlTitle.h"),
    ("dlglib/utility/CvUtility.cpp", "dlglib/filsel/file_request.h"),
    ("dlglib/filedialog/dialogs/CvMdlTitle.h", "dlglib/listcontrol/grid.h"),
]:
    expect(f"{path} past an entrance", run(with_include(path, included)), 1, f"{path} includes {included}")

for failure in failures:
    print(failure)
sys.exit(1 if failures else 0)
