#!/usr/bin/env python3
"""Unpacks what the program packs with a zlib of its own: check_packing.py PACK_FILE

PACK_FILE is the program pack_file. A packed file is the size of its source in four bytes,
little-endian, and one zlib stream, with nothing after it.
"""

import pathlib
import random
import struct
import subprocess
import sys
import tempfile
import zlib


def contents():
    noise = random.Random(1)
    yield b"x"
    yield b"\0" * 1000
    yield bytes(range(256)) * 4
    yield "Größe 漢字\r\n".encode() * 500
    for size in (11, 100, 65535, 65536, 3_000_000):
        yield noise.randbytes(size)


def check(pack, folder, plain):
    source, target = folder / "log.dat", folder / "log.zip"
    source.write_bytes(plain)
    target.write_bytes(b"old" * 5_000_000)
    subprocess.run([pack, source, target], check=True, stdin=subprocess.DEVNULL)
    packed = target.read_bytes()
    assert packed[:4] == struct.pack("<i", len(plain)), packed[:4]
    stream = zlib.decompressobj()
    assert stream.decompress(packed[4:]) == plain, "another content"
    assert stream.eof and not stream.unused_data, "bytes after the stream"
    assert packed[4:] == zlib.compress(plain, 9) or len(packed) < len(plain) * 1.01 + 16
    assert source.read_bytes() == plain, "the source has changed"


def check_failure(pack, folder, source):
    target = folder / "kept.zip"
    target.write_bytes(b"kept")
    ended = subprocess.run([pack, source, target], stdin=subprocess.DEVNULL,
                           stderr=subprocess.DEVNULL)
    assert ended.returncode == 3, ended.returncode
    assert target.read_bytes() == b"kept"


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for plain in contents():
            check(sys.argv[1], folder, plain)
        (folder / "empty").touch()
        check_failure(sys.argv[1], folder, folder / "empty")
        check_failure(sys.argv[1], folder, folder / "missing")


if __name__ == "__main__":
    main()
