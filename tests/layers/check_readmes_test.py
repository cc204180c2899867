"""Sees check_readmes.py notice what one language says and the other does not.

    check_readmes_test.py <root of the tree>
"""
import os
import sys
import tempfile
import unittest

import check_readmes

with open(os.path.join(sys.argv[1], "README.ja.md"), encoding="utf-8") as page:
    TEXT = page.read()


class Readmes(unittest.TestCase):
    def told(self, old, new):
        self.assertIn(old, TEXT)
        return [line.partition(":")[0] for line in check_readmes.differences(TEXT, TEXT.replace(old, new, 1))]

    def test_the_same_page_passes(self):
        self.assertEqual(list(check_readmes.differences(TEXT, TEXT)), [])

    def test_words_may_differ(self):
        self.assertEqual(self.told("まだ決まっていません。", "未定です。"), [])

    def test_each_kind_is_noticed(self):
        self.assertEqual(self.told("\n## 制限\n", "\n"), ["headings"])
        self.assertEqual(self.told("    ./demo.sh\n", "    ./demo\n"), ["code"])
        self.assertEqual(self.told("project(app ", "project(program "), ["code"])
        self.assertEqual(self.told("(docs/versions.md)", "(docs/version.md)"), ["links"])
        self.assertEqual(self.told("![一覧](docs/pictures/list.png)", ""), ["links", "pictures"])
        self.assertEqual(self.told("`./test.sh --ci`", "これ"), ["commands and names"])
        self.assertEqual(self.told("| `fuzz/` |", "| `fuzz/` | |"), ["lines of tables"])
        self.assertEqual(self.told("- 64 ビット", "64 ビット"), ["points"])

    def test_a_link_into_the_other_language_is_no_difference(self):
        self.assertEqual(self.told("(docs/versions.md)", "(docs/versions.ja.md)"), [])

    def test_a_link_that_leads_nowhere_is_noticed(self):
        text = "[a](README.md#part) [b](docs/none.md) [c](https://example.com/none) `](no link)`"
        self.assertEqual(list(check_readmes.dead_links(text, sys.argv[1])), ["docs/none.md"])

    def test_a_page_that_nothing_leads_to_is_noticed(self):
        with tempfile.TemporaryDirectory() as root:
            os.mkdir(os.path.join(root, "docs"))
            for name, text in (("README.md", "[a](a.md)"), ("a.md", ""), ("a.ja.md", ""), ("b.md", "")):
                with open(os.path.join(root, "docs", name), "w", encoding="utf-8") as page:
                    page.write(text)
            self.assertEqual(list(check_readmes.unlisted(root)), ["b.md"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
