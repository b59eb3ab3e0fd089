#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Pictures of all kinds through `zelctl render --image`, by the tables of `zelctl export`.

Read and written here by pypng, which has no line in common with libpng.
"""
import copy
import pathlib
import sys

import numpy as np
import png

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent / "export"))
from chain import Chain
from support import MODES, PANELS, Case, all_colors, main

KEPT = 2.2 * 0.4  # of a gamma of 0.4 against sRGB's


def expected(chain, samples, depth):
    """Codes, and whether double precision leaves no doubt of them."""
    exact = np.clip(chain(samples / (2**depth - 1)), 0, 1) * (2**depth - 1)
    return np.floor(exact + 0.5), abs(exact % 1 - 0.5) > 1e-6


class Picture(Case):
    def shown(self, mode, rows, *options, **kind):
        """Rows of samples, as pypng takes them, through the mode; how the file says it is."""
        source, result = self.folder / "in.png", self.folder / "out.png"
        rows = np.asarray(rows)
        with source.open("wb") as file:
            png.Writer(width=kind.pop("width"), height=len(rows), **kind).write(file, rows.tolist())
        done = self.zelctl(*mode, "--image", str(source), "-o", str(result), *options)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        width, height, samples, info = png.Reader(filename=str(result)).read()
        samples = np.array([list(row) for row in samples])
        return samples.reshape(height, width, -1), info

    def test_every_mode_to_the_code(self):
        random = np.random.default_rng(3)
        for depth, colors in ((8, all_colors(np.linspace(0, 255, 24).round()).astype(int)),
                              (16, random.integers(0, 65536, (4096, 3)))):
            rows = colors.reshape(16, -1)
            for panel, mode in MODES:
                coarse = [("--gc-entries", "2", "--dimming", "0.7")] if panel == "odd" else []
                for options in [(), *coarse]:
                    with self.subTest(panel=panel, mode=mode, depth=depth, options=options):
                        chain = Chain(self.export(panel, mode, "json", *options)[0])
                        wanted, sure = expected(chain, colors, depth)
                        found, info = self.shown((panel, "render", mode), rows, *options,
                                                 width=len(colors) // 16, greyscale=False,
                                                 bitdepth=depth)
                        self.assertEqual(info["bitdepth"], depth)
                        self.assertGreater(sure.mean(), 0.99)
                        np.testing.assert_array_equal(found.reshape(-1, 3)[sure], wanted[sure])

    def test_every_kind(self):
        """Where colours stay as they are, what is left is the reading."""
        linear = copy.deepcopy(PANELS["phone-oled"])
        linear["panel"]["transfer"] = "linear"
        self.add_panel("linear", linear)
        grey = np.arange(0, 65536, 257 * 5)
        rgb = np.stack([grey, grey[::-1], np.roll(grey, 9)], axis=-1)
        alpha = np.roll(grey, 20)
        full = np.full_like(grey, 65535)
        opaque = np.where(grey == 257 * 5, 0, 65535)  # one grey is transparent
        bright = np.round(65535 * (grey / 65535)**(1 / KEPT))
        three = lambda values: np.stack([values] * 3, axis=-1)
        cases = (
            (grey, {"greyscale": True}, three(grey)),
            (np.stack([grey, alpha], -1), {"greyscale": True, "alpha": True},
             np.column_stack([three(grey), alpha])),
            (grey, {"greyscale": True, "transparent": 257 * 5}, np.column_stack([three(grey), opaque])),
            (np.column_stack([rgb, alpha]), {"greyscale": False, "alpha": True},
             np.column_stack([rgb, alpha])),
            (np.column_stack([rgb, full]), {"greyscale": False, "alpha": True, "interlace": True},
             np.column_stack([rgb, full])),
            (grey, {"greyscale": True, "gamma": 0.4}, three(bright)),
            (grey, {"greyscale": True, "gamma": 0.4545}, three(grey)))
        for rows, kind, wanted in cases:
            for depth in 8, 16:
                with self.subTest(kind=kind, depth=depth):
                    unit = 257 if depth == 8 else 1
                    kind = dict(kind)
                    if "transparent" in kind:
                        kind["transparent"] = 257 * 5 // unit
                    found, info = self.shown(("linear", "render", "native", "--igc-bits", "32",
                                              "--gc-bits", "32"),
                                             (rows // unit).reshape(1, -1), width=len(grey),
                                             bitdepth=depth, **kind)
                    self.assertEqual((info["bitdepth"], info["planes"]), (depth, wanted.shape[1]))
                    # What the blocks' tables leave, and libpng's gamma of 8 bits.
                    np.testing.assert_allclose(found[0], wanted / unit,
                                               atol=1 if depth == 8 and "gamma" in kind else 0.5)

    def test_threads_and_size_change_no_pixel(self):
        rows = np.random.default_rng(4).integers(0, 256, (1037, 3 * 41))
        shown = lambda *options: self.shown(("odd", "render", "paper"), rows, *options, width=41,
                                            greyscale=False)[0]
        plain = shown()
        size = (self.folder / "out.png").stat().st_size
        for options in ("--threads", "1"), ("--threads", "7"), ("--small",):
            np.testing.assert_array_equal(shown(*options), plain)
        self.assertLess((self.folder / "out.png").stat().st_size, size)


if __name__ == "__main__":
    main()
