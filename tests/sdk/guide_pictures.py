#!/usr/bin/env python3
"""The pictures of the guide's programs, which the client leaves when it uses them.

    guide_pictures.py check <docs> <pictures>   the guide, docs/pictures and the client must have the same ones
    guide_pictures.py renew <docs> <pictures>   puts those of the client into docs/pictures, compressed

How a picture looks is not compared: another Wine draws in another way.
"""
import os
import re
import struct
import sys
import zlib

GUIDES = ("embedding.md", "embedding.ja.md")


def names(folder):
    return {name for name in os.listdir(folder) if name.startswith("guide_") and name.endswith(".png")}


def differences(docs, taken):
    """What the pages show, what is kept and what was taken must be one and the same."""
    for guide in GUIDES:
        with open(os.path.join(docs, guide), encoding="utf-8") as file:
            shown = set(re.findall(r"\(pictures/(guide_\w+\.png)\)", file.read()))
        for name in sorted(shown ^ taken):
            yield f"{guide} shows {name}, which is not taken" if name in shown else f"{guide} does not show {name}"
    for name in sorted(names(os.path.join(docs, "pictures")) ^ taken):
        yield f"{name} is in docs/pictures or is taken, and not both"


def chunks(png):
    """The type and the data of each chunk."""
    at = 8
    while at < len(png):
        (length,) = struct.unpack(">I", png[at:at + 4])
        yield png[at + 4:at + 8], png[at + 8:at + 8 + length]
        at += 12 + length


def compressed(png):
    data = b"".join(data for kind, data in chunks(png) if kind == b"IDAT")
    parts = [(kind, data) for kind, data in chunks(png) if kind != b"IDAT"]
    parts.insert(-1, (b"IDAT", zlib.compress(zlib.decompress(data), 9)))
    crc = lambda part: zlib.crc32(part[0] + part[1])
    return png[:8] + b"".join(struct.pack(">I", len(part[1])) + part[0] + part[1] + struct.pack(">I", crc(part))
                              for part in parts)


def renew(docs, pictures):
    for name in sorted(names(pictures)):
        with open(os.path.join(pictures, name), "rb") as file:
            png = compressed(file.read())
        with open(os.path.join(docs, "pictures", name), "wb") as file:
            file.write(png)


def main():
    command, docs, pictures = sys.argv[1:]
    if command == "renew":
        renew(docs, pictures)
        return 0
    bad = list(differences(docs, names(pictures)))
    for line in bad:
        print(line)
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
