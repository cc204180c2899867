"""Sees check_archive.py tell of an archive that is broken in each way.

    check_archive_test.py <unpacked archive> <root of the sources>
"""
import hashlib
import shutil
import sys
import tempfile
import unittest
import zipfile
from pathlib import Path

SOURCES = Path(sys.argv.pop(2))
ARCHIVE = Path(sys.argv.pop(1))
sys.path.insert(0, str(Path(__file__).parent))

import check_archive  # noqa: E402


class BrokenTree(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name) / "dlglib"
        shutil.copytree(ARCHIVE, self.root)

    def told_of(self, check, *more):
        return "\n".join(check(self.root, *more))

    def test_a_sound_one_passes(self):
        self.assertEqual(list(check_archive.breaches(self.root, SOURCES)), [])

    def test_a_page_that_leads_nowhere(self):
        (self.root / "docs/page.md").write_text("see [this](none.md#there)")
        self.assertIn("docs/page.md: leads to none.md", self.told_of(check_archive.check_links))

    def test_files_that_are_missing_or_others(self):
        (self.root / "more").mkdir()
        (self.root / "bin/data/more").write_text("")
        (self.root / "examples/c/choose_model.c").write_text("")
        (self.root / "examples/vba/Dlglib.bas").unlink()
        (self.root / "docs/README.md").unlink()
        (self.root / "docs/reference/index.html").unlink()
        told = self.told_of(check_archive.check_copies, SOURCES)
        for text in ("archive holds", "bin/data: more should not", "choose_model.c differs", "Dlglib.bas is missing", "README.md is not",
                     "no reference"):
            self.assertIn(text, told)

    def test_records_of_another_program(self):
        shutil.copy(self.root / "symbols/crvnsuite.dll.debug", self.root / "symbols/crvndlglib.dll.debug")
        shutil.copy(self.root / "bin/crvndlglib.dll", self.root / "bin/crvnsuite.dll")
        told = self.told_of(check_archive.check_programs)
        self.assertIn("symbols/crvndlglib.dll.debug: not the debug records", told)
        self.assertIn("bin/crvnsuite.dll: not linked", told)

    def test_a_program_with_its_records(self):
        shutil.copy(self.root / "symbols/corvane-demo.exe.debug", self.root / "bin/corvane-demo.exe")
        self.assertIn("bin/corvane-demo.exe: not stripped", self.told_of(check_archive.check_programs))

    def test_a_name_that_is_not_told(self):
        definitions = self.root / "lib/dlglib.def"
        definitions.write_text(definitions.read_text().replace("    DlglibVersion\n", ""))
        shutil.copy(self.root / "lib/libcrvnsuite.dll.a", self.root / "lib/crvndlglib.lib")
        told = self.told_of(check_archive.check_names, SOURCES)
        self.assertIn("lib/dlglib.def: not the exported names", told)
        self.assertIn("crvndlglib.lib: no DlglibVersion", told)

    def test_a_bill_that_is_not_of_these_files(self):
        (self.root / "README.md").write_text("")
        (self.root / "more").write_text("")
        (self.root / "LICENSE.md").unlink()
        told = self.told_of(check_archive.check_bill)
        for text in ("./README.md has other sums", "./more is not told of", "./LICENSE.md is not there"):
            self.assertIn(text, told)


class BrokenFile(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.archive = Path(folder.name) / "dlglib-1.0.0-win64.zip"

    def told_of(self, name, checksum=None):
        with zipfile.ZipFile(self.archive, "w") as packed:
            packed.writestr(name, "")
        right = hashlib.sha256(self.archive.read_bytes()).hexdigest()
        self.archive.with_name(self.archive.name + ".sha256").write_text(f"{checksum or right}  {self.archive.name}\n")
        return list(check_archive.check_archive(self.archive))

    def test_a_sound_one_passes(self):
        self.assertEqual(self.told_of("bin/図面.MDL"), [])

    def test_another_checksum(self):
        self.assertEqual(self.told_of("a", "0" * 64), [f"{self.archive.name}: not what its checksum says"])

    def test_a_name_that_leads_out(self):
        self.assertEqual(len(self.told_of("../a")), 1)
        self.assertEqual(len(self.told_of("/a")), 1)


if __name__ == "__main__":
    unittest.main()
