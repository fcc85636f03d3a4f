#!/usr/bin/env python3
"""Renders the program's icons: dist/icons/*.svg -> dist/icons/png/*.png and dist/icons/velmora.ico.

  make_icons.py           renders everything again
  make_icons.py --check   only checks that velmora.ico holds the pictures of png/

The results are checked in, so that building needs no renderer. Uses rsvg-convert (on Debian the
package librsvg2-bin), or the Python module cairosvg when there is no rsvg-convert.

A picture NAME.svg is for 32 pixels and more; NAME-small.svg is the same on a grid of 16, with fewer
details, for the sizes at which the other one would be unclear.
"""

import shutil
import struct
import subprocess
import sys
import zlib
from pathlib import Path

ICONS = Path(__file__).resolve().parent.parent / "dist" / "icons"
NAMES = ("velmora", "velmora-alert", "velmora-paused")
SIZES = (16, 20, 24, 32, 40, 48, 64, 128, 256)
LARGEST_SMALL = 24

# Below this an .ico holds plain bitmaps, which every reader of resources understands.
FIRST_COMPRESSED = 128

PNG_START = b"\x89PNG\r\n\x1a\n"
BYTES_A_PIXEL = 4


def render(svg, size, png):
    if shutil.which("rsvg-convert"):
        side = str(size)
        subprocess.run(["rsvg-convert", "-w", side, "-h", side, "-o", png, svg], check=True)
        return
    try:
        import cairosvg
    except ImportError:
        sys.exit("make_icons.py: needs rsvg-convert (package librsvg2-bin) or the module cairosvg")
    cairosvg.svg2png(url=str(svg), write_to=str(png), output_width=size, output_height=size)


def png_path(name, size):
    return ICONS / "png" / f"{name}-{size}.png"


def render_all():
    (ICONS / "png").mkdir(exist_ok=True)
    for name in NAMES:
        for size in SIZES:
            drawing = name + "-small" if size <= LARGEST_SMALL else name
            render(ICONS / f"{drawing}.svg", size, png_path(name, size))


def chunks(png):
    """The chunks of a PNG file: pairs of kind and content."""
    at = len(PNG_START)
    while at < len(png):
        length, kind = struct.unpack_from(">I4s", png, at)
        yield kind, png[at + 8:at + 8 + length]
        at += 12 + length


def paeth(left, above, corner):
    estimate = left + above - corner
    return min((left, above, corner), key=lambda value: abs(estimate - value))


def unfiltered(kind, line, above):
    """A line of pixels out of what its filter left of it."""
    line = bytearray(line)
    for i, value in enumerate(line):
        left = line[i - BYTES_A_PIXEL] if i >= BYTES_A_PIXEL else 0
        corner = above[i - BYTES_A_PIXEL] if i >= BYTES_A_PIXEL else 0
        guess = (0, left, above[i], (left + above[i]) // 2, paeth(left, above[i], corner))[kind]
        line[i] = (value + guess) & 0xFF
    return line


def pixel_lines(png):
    """The lines of a PNG file, top first, four bytes a pixel: red, green, blue, alpha."""
    found = list(chunks(png))
    header = dict(found)[b"IHDR"]
    width, height, depth, colours, _, _, interlaced = struct.unpack(">IIBBBBB", header)
    if (depth, colours, interlaced) != (8, 6, 0):
        raise ValueError("not a plain PNG of red, green, blue and alpha")
    data = zlib.decompress(b"".join(content for kind, content in found if kind == b"IDAT"))
    stride = width * BYTES_A_PIXEL
    lines = [bytearray(stride)]
    for row in range(height):
        start = row * (stride + 1)
        lines.append(unfiltered(data[start], data[start + 1:start + 1 + stride], lines[-1]))
    return lines[1:]


def bitmap(lines):
    """The picture as an .ico's bitmap: upside down, then the mask for readers without alpha."""
    size = len(lines)
    colours = bytearray()
    mask = bytearray()
    mask_stride = (size + 31) // 32 * 4
    for line in reversed(lines):
        bits = 0
        for x in range(size):
            red, green, blue, alpha = line[x * 4:x * 4 + 4]
            colours += bytes((blue, green, red, alpha))
            bits |= (alpha == 0) << (mask_stride * 8 - 1 - x)
        mask += bits.to_bytes(mask_stride, "big")
    length = len(colours) + len(mask)
    header = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, length, 0, 0, 0, 0)
    return header + colours + mask


def icon_file(pictures):
    """An .ico of PNG files given as pairs of size and content."""
    entries = b""
    contents = b""
    first = 6 + 16 * len(pictures)
    for size, png in pictures:
        content = png if size >= FIRST_COMPRESSED else bitmap(pixel_lines(png))
        side = size % 256  # 256 is written as 0
        place = first + len(contents)
        entries += struct.pack("<BBBBHHII", side, side, 0, 0, 1, 32, len(content), place)
        contents += content
    return struct.pack("<HHH", 0, 1, len(pictures)) + entries + contents


def main():
    if sys.argv[1:] not in ([], ["--check"]):
        sys.exit(__doc__)
    if not sys.argv[1:]:
        render_all()
    icon = icon_file([(size, png_path("velmora", size).read_bytes()) for size in SIZES])
    target = ICONS / "velmora.ico"
    if not sys.argv[1:]:
        target.write_bytes(icon)
    elif target.read_bytes() != icon:
        sys.exit("make_icons.py: velmora.ico doesn't hold the pictures of png/")


if __name__ == "__main__":
    main()
