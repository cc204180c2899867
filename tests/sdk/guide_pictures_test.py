"""Sees guide_pictures.py notice a picture that is missing somewhere, and keep what a picture shows when it compresses it."""
import os
import struct
import tempfile
import unittest
import zlib

import guide_pictures


def png(data):
    parts = ((b"IHDR", b"size"), (b"IDAT", data[:3]), (b"IDAT", data[3:]), (b"IEND", b""))
    return b"\x89PNG\r\n\x1a\n" + b"".join(struct.pack(">I", len(part)) + kind + part + struct.pack(">I", zlib.crc32(kind + part))
                                           for kind, part in parts)


class GuidePictures(unittest.TestCase):
    def told(self, shown, kept, taken):
        with tempfile.TemporaryDirectory() as docs:
            os.mkdir(os.path.join(docs, "pictures"))
            for guide in guide_pictures.GUIDES:
                with open(os.path.join(docs, guide), "w", encoding="utf-8") as file:
                    file.write("".join(f"![a](pictures/{name})\n" for name in shown))
            for name in kept:
                open(os.path.join(docs, "pictures", name), "w", encoding="utf-8").close()
            return list(guide_pictures.differences(docs, set(taken)))

    def test_the_same_pictures_everywhere_pass(self):
        self.assertEqual(self.told(["guide_a.png"], ["guide_a.png", "grid.png"], ["guide_a.png"]), [])

    def test_a_picture_that_nobody_takes_is_noticed(self):
        self.assertEqual(len(self.told(["guide_a.png"], ["guide_a.png"], [])), 3)

    def test_a_picture_that_no_page_shows_is_noticed(self):
        self.assertEqual(self.told([], ["guide_a.png"], ["guide_a.png"]),
                         ["embedding.md does not show guide_a.png", "embedding.ja.md does not show guide_a.png"])

    def test_a_picture_that_is_not_kept_is_noticed(self):
        self.assertEqual(len(self.told(["guide_a.png"], [], ["guide_a.png"])), 1)

    def test_a_compressed_picture_shows_the_same(self):
        pixels = bytes(1000)
        small = guide_pictures.compressed(png(zlib.compress(pixels, 0)))
        self.assertLess(len(small), 200)
        data = b"".join(part for kind, part in guide_pictures.chunks(small) if kind == b"IDAT")
        self.assertEqual(zlib.decompress(data), pixels)
        self.assertEqual([kind for kind, _ in guide_pictures.chunks(small)], [b"IHDR", b"IDAT", b"IEND"])


if __name__ == "__main__":
    unittest.main()
