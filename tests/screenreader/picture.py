# SPDX-FileCopyrightText: 2026 The Tovarin developers
# SPDX-License-Identifier: MIT
"""Keeps what is on the screen as a picture, without asking anybody on it."""

import struct
import zlib


def keep(screen, path):
    """From the file in which Xvfb has its screen (XWD, 32 bits to the pixel) to a PNG file."""
    with open(screen, "rb") as file:
        data = file.read()
    header = struct.unpack(">20I", data[:80])
    width, height, stride = header[4], header[5], header[12]
    pixels = data[header[0] + 12 * header[19]:]
    rows = bytearray()
    for y in range(height):
        line = pixels[y * stride:y * stride + 4 * width]
        colours = bytearray(3 * width)
        colours[0::3], colours[1::3], colours[2::3] = line[2::4], line[1::4], line[0::4]
        rows += b"\0" + colours
    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n")
        for kind, content in ((b"IHDR", struct.pack(">2I5B", width, height, 8, 2, 0, 0, 0)),
                              (b"IDAT", zlib.compress(rows)), (b"IEND", b"")):
            file.write(struct.pack(">I", len(content)) + kind + content
                       + struct.pack(">I", zlib.crc32(kind + content)))
