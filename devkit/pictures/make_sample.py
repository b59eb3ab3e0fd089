#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes the sample picture: a colour wheel, ramps, greys and patches.

Usage: make_sample.py OUT.png
"""
import colorsys
import math
import struct
import sys
import zlib

WIDTH, HEIGHT = 640, 400
BACKGROUND = (118, 118, 118)  # about 18 % of linear light in sRGB

WHEEL_CENTRE, WHEEL_RADIUS = (160, 160), 136

# Left, top, width and height of the areas beside and below the wheel.
RAMPS = (320, 24, 296, 168)
PATCHES = (320, 208, 296, 88)
GREYS = (24, 320, 592, 56)

RAMP_ENDS = [(255, 0, 0), (255, 255, 0), (0, 255, 0), (0, 255, 255), (0, 0, 255), (255, 0, 255),
             (255, 255, 255)]
# Skin from light to dark, then foliage, sky, wood, brick and sand.
PATCH_ROWS = [
    [(246, 214, 192), (233, 188, 156), (207, 153, 117), (168, 113, 79), (118, 75, 50), (73, 46, 33)],
    [(92, 124, 56), (134, 172, 214), (120, 84, 52), (166, 74, 56), (216, 192, 148), (44, 92, 88)],
]
GREY_STEPS = 17


def inside(area, x, y):
    left, top, width, height = area
    return left <= x < left + width and top <= y < top + height


def cell(area, x, y, columns, rows):
    """Column and row of the pixel, of the cells into which the area is divided."""
    left, top, width, height = area
    return (x - left) * columns // width, (y - top) * rows // height


def wheel(x, y):
    """Hue round the centre, saturation outwards; None outside."""
    dx, dy = x - WHEEL_CENTRE[0], WHEEL_CENTRE[1] - y
    distance = math.hypot(dx, dy) / WHEEL_RADIUS
    if distance > 1:
        return None
    hue = math.atan2(dy, dx) / (2 * math.pi) % 1
    return tuple(round(255 * c) for c in colorsys.hsv_to_rgb(hue, distance, 1))


def ramp(x, y):
    """From black on the left to one of the full colours."""
    left, _, width, _ = RAMPS
    _, row = cell(RAMPS, x, y, 1, len(RAMP_ENDS))
    return tuple(round(c * (x - left) / (width - 1)) for c in RAMP_ENDS[row])


def patch(x, y):
    column, row = cell(PATCHES, x, y, len(PATCH_ROWS[0]), len(PATCH_ROWS))
    return PATCH_ROWS[row][column]


def grey(x, y):
    column, _ = cell(GREYS, x, y, GREY_STEPS, 1)
    return (round(255 * column / (GREY_STEPS - 1)),) * 3


def colour(x, y):
    for area, draw in ((RAMPS, ramp), (PATCHES, patch), (GREYS, grey)):
        if inside(area, x, y):
            return draw(x, y)
    return wheel(x, y) or BACKGROUND


def chunk(kind, data):
    body = kind + data
    return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))


def png(rows):
    """8-bit RGB. Rows are stored as differences to the pixel on the left (filter 1)."""
    header = struct.pack(">IIBBBBB", WIDTH, HEIGHT, 8, 2, 0, 0, 0)
    data = bytearray()
    for row in rows:
        data.append(1)
        data += bytes((value - before) % 256 for value, before in zip(row, [0, 0, 0] + row))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header)
            + chunk(b"IDAT", zlib.compress(bytes(data), 9)) + chunk(b"IEND", b""))


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    rows = [[c for x in range(WIDTH) for c in colour(x, y)] for y in range(HEIGHT)]
    with open(sys.argv[1], "wb") as file:
        file.write(png(rows))


main()
