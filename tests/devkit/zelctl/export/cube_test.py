#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
""".cube files, as OpenColorIO and ffmpeg read them, against the blocks themselves."""
import re
import subprocess

import numpy as np

from chain import Chain
from support import Case, all_colors, main, needs, needs_ocio, ocio


def by_ocio(path, colors, interpolation):
    ocio.ClearAllCaches()
    transform = ocio.FileTransform(src=str(path), interpolation=getattr(
        ocio, {"tetrahedral": "INTERP_TETRAHEDRAL", "trilinear": "INTERP_LINEAR"}[interpolation]))
    processor = ocio.Config.CreateRaw().getProcessor(transform).getDefaultCPUProcessor()
    pixels = colors.astype(np.float32)
    processor.applyRGB(pixels)
    return pixels.astype(float)


def by_ffmpeg(path, colors, interpolation):
    """In planes of floats, green first; a row of a picture can't be as long as all colours."""
    width = 4096
    padded = np.pad(colors, ((0, -len(colors) % width), (0, 0)))
    planes = np.ascontiguousarray(padded[:, [1, 2, 0]].T, dtype="<f4")
    raw = ["-f", "rawvideo", "-pix_fmt", "gbrpf32le"]
    done = subprocess.run(
        ["ffmpeg", "-v", "error", *raw, "-s", f"{width}x{len(padded) // width}", "-i", "-",
         "-vf", f"lut3d=file={path}:interp={interpolation}", *raw, "-"],
        input=planes.tobytes(), capture_output=True, check=True)
    planes = np.frombuffer(done.stdout, "<f4").reshape(3, -1)
    return planes[[2, 0, 1], :len(colors)].T.astype(float)


class Cube(Case):
    def nodes_are_exact(self, path, chain, size):
        axis = np.linspace(0, 1, size)
        nodes = np.stack(np.meshgrid(axis, axis, axis, indexing="ij"), axis=-1).reshape(-1, 3)
        shown = chain(nodes)
        for read in by_ocio, by_ffmpeg:
            for interpolation in "tetrahedral", "trilinear":
                np.testing.assert_allclose(read(path, nodes, interpolation), shown, rtol=0,
                                           atol=1e-6, err_msg=f"{read.__name__} {interpolation}")

    @needs("ffmpeg")
    @needs_ocio
    def test_small_table(self):
        path, said = self.export("odd", "paper_exact", "cube", "--size", "6")
        self.nodes_are_exact(path, Chain(self.export("odd", "paper_exact", "json")[0]), 6)
        self.assertIn("--format clf is exact", said)
        self.assertEqual(self.export("phone-oled", "srgb", "cube", "--size", "33")[1], "")
        ltm = self.folder / "ltm.json"  # clf can't hold its R*G
        ltm.write_text('{"r": [0, 1, 0, 0, 0.1, 0, 0, 0, 0, 0, 0], "g": [0, 0, 1, 0], '
                       '"b": [0, 0, 0, 1]}')
        said = self.export("odd", "paper", "cube", "--size", "6", "--ltm", str(ltm))[1]
        self.assertIn("--format json is exact", said)

    @needs("ffmpeg")
    @needs_ocio
    def test_stated_error_is_what_readers_show(self):
        path, said = self.export("phone-oled", "bt2020_st2084", "cube")
        self.assertIn("--format clf is exact", said)
        text = path.read_text()
        self.assertIn(said.removeprefix("zelctl: warning: "), text)
        chain = Chain(self.export("phone-oled", "bt2020_st2084", "json")[0])
        codes = np.concatenate([np.arange(9), 8 + np.cumsum([2, 3, 1] * 41), [255]])
        greys = np.repeat(np.arange(256)[:, None], 3, axis=1)
        colors = np.concatenate([greys, all_colors(codes)]) / 255
        exact = chain(colors)
        for read, interpolation in (by_ocio, "trilinear"), (by_ffmpeg, "tetrahedral"):
            with self.subTest(reader=read.__name__):
                stated = re.search(rf"^# {interpolation} .*: largest (.*), mean (.*)$", text, re.M)
                error = 255 * abs(read(path, colors, interpolation) - exact)
                self.assertAlmostEqual(error.max(), float(stated[1]), delta=0.006)
                self.assertAlmostEqual(error.mean(), float(stated[2]), delta=0.0006)


if __name__ == "__main__":
    main()
