#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""CLF files, as OpenColorIO reads them."""
import copy
import json
import xml.etree.ElementTree as xml

import numpy as np

from support import MODES, PANELS, Case, all_colors, main, needs, needs_ocio, ocio, run

COLORS = all_colors(np.round(np.linspace(0, 255, 32)))
FINE = ("--igc-bits", "24", "--igc-entries", "1024", "--gamut-bits", "24", "--gc-bits", "16")


def read(path, codes, optimization):
    """The file's output for 8-bit codes, as 8-bit codes."""
    ocio.ClearAllCaches()
    transform = ocio.FileTransform(src=str(path))
    processor = ocio.Config.CreateRaw().getProcessor(transform).getOptimizedCPUProcessor(
        ocio.BIT_DEPTH_F32, ocio.BIT_DEPTH_F32, optimization)
    pixels = codes.astype(np.float32) / np.float32(255)
    processor.applyRGB(pixels)
    return np.round(255 * pixels).astype(int)


@needs_ocio
@needs("ociochecklut")
class Clf(Case):
    def same_picture(self, panel, mode, *options):
        """But for the rounding of single precision: one code, of 20 samples in a million."""
        path, _ = self.export(panel, mode, "clf", *options)
        run(["ociochecklut", str(path), "0.2", "0.5", "0.7"])
        shown = self.render(panel, mode, COLORS, *options).astype(int)
        for optimization in ocio.OPTIMIZATION_NONE, ocio.OPTIMIZATION_DEFAULT:
            off = abs(read(path, COLORS, optimization) - shown)
            self.assertLessEqual(off.max(), 1)
            self.assertLessEqual(np.count_nonzero(off), 1 + 2e-5 * off.size)
        return path

    def test_all_modes(self):
        for panel, mode in MODES:
            with self.subTest(panel=panel, mode=mode):
                self.same_picture(panel, mode)

    def test_settings_and_table_sizes(self):
        ltm = self.folder / "ltm.json"
        ltm.write_text(json.dumps({"r": [20, 0.7, 0.1, 0], "g": [-9, 0, 1, 0], "b": [0, 0, 0, 1]}))
        for mode, options in (
                ("bt2020_hlg", FINE),
                ("native", ("--color-transform", "inversion")),  # offsets
                ("srgb", ("--color-transform", "night:3400", "--dimming", "0.6")),
                ("bt2020_st2084", ("--dimming", "4")),  # clipped after the matrix
                ("display_p3", ("--ltm", str(ltm), *FINE)),
                ("native", ("--igc-entries", "1")),
                ("native", ("--gc-entries", "2")),
                ("srgb", ("--igc-entries", "2", "--gc-entries", "1"))):
            with self.subTest(mode=mode, options=options):
                self.same_picture("phone-oled", mode, *options)

    def test_blocks_are_process_nodes(self):
        gamma = ["Exponent", "LUT1D"]
        for mode, nodes in (
                ("srgb", ["LUT1D", "Matrix", "Range", *gamma]),
                ("bt2020_hlg",
                 ["LUT1D", "Range", "LUT1D", "LUT3D", "Matrix", "Range", *gamma])):
            root = xml.parse(self.export("phone-oled", mode, "clf")[0]).getroot()
            self.assertEqual(root.get("compCLFversion"), "3.0")
            self.assertEqual([n.tag for n in root if n.get("inBitDepth")], nodes)

    def test_names_are_escaped(self):
        description = copy.deepcopy(PANELS["lcd-srgb"])
        description["modes"][1]["label"] = label = "<\"1\" & 'ü'>"
        self.add_panel("names", description)
        for options, said in ((), ""), (
                ("--dimming", "0.5", "--color-transform", "night:3400"),
                ", colour transform night:3400, dimming 0.5"):
            path = self.same_picture("names", "1:1:0", *options)
            self.assertEqual(xml.parse(path).getroot().get("name"),
                             f"mode {label} of panel names{said}")

    def test_higher_terms_are_refused_by_name(self):
        ltm = self.folder / "ltm.json"
        ltm.write_text(json.dumps({"r": [0, 1, 0, 0, 0.001] + 6 * [0], "g": [0, 0, 1, 0],
                                   "b": [0, 0, 0, 1] + 6 * [0] + [1e-5]}))
        output = self.folder / "kept.clf"
        output.write_text("before")
        done = self.zelctl("phone-oled", "export", "native", "--format", "clf", "--ltm", str(ltm),
                           "-o", str(output))
        self.assertEqual(done.returncode, 2)
        self.assertIn("R*G (t4) in red, R*G*B (t10) in blue", done.stderr)
        self.assertEqual(output.read_text(), "before")


if __name__ == "__main__":
    main()
