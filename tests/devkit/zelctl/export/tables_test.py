#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""JSON and CSV tables, read by Python's own readers; and what the command refuses."""
import csv
import json

import numpy as np

from chain import Chain
from support import Case, all_colors, main

COLORS = all_colors(np.linspace(0, 255, 12).round())


class Tables(Case):
    def test_json_is_the_picture(self):
        ltm = self.folder / "ltm.json"
        ltm.write_text(json.dumps({"r": [9, 0.6, 0, 0, 1e-3, 0, 0, 0, 0, 0, 1e-6],
                                   "g": [0, 0, 1, 0], "b": [0, 0, 0, 1]}))
        for panel, mode, options in (("phone-oled", "bt2020_hlg", ()), ("odd", "paper", ()),
                                     ("phone-oled", "vivid", ("--ltm", str(ltm))),
                                     ("lcd-srgb", "srgb", ("--igc-bits", "20", "--gc-bits", "9"))):
            with self.subTest(panel=panel, mode=mode):
                path, _ = self.export(panel, mode, "json", *options)
                shown = self.render(panel, mode, COLORS, *options)
                found = 255 * Chain(path)(COLORS / 255)
                self.assertLess(abs(found - shown).max(), 0.5 + 1e-9)
                rendered = self.zelctl(panel, "render", mode, "--json", "--tables", *options)
                self.assertEqual(json.loads(path.read_text())["blocks"],
                                 json.loads(rendered.stdout)["blocks"])

    def test_csv_is_the_json(self):
        for mode in "srgb", "bt2020_st2084":
            with open(self.export("phone-oled", mode, "csv")[0], newline="",
                      encoding="ascii") as file:
                rows = list(csv.DictReader(file))
            blocks = json.loads(self.export("phone-oled", mode, "json")[0].read_text())

            def column(block, name, of=rows):
                return np.array([float(row[name]) for row in of if row["block"] == block])

            for block, key in ("PostBlendIGC", "igc"), ("PostBlendGC", "gc"):
                for channel in "red", "green", "blue":
                    table, full = blocks[key][channel], 2**blocks[key]["bits"] - 1
                    np.testing.assert_array_equal(column(block, f"in_{channel}"), table["in"])
                    np.testing.assert_array_equal(column(block, f"{channel}_code"), table["code"])
                    np.testing.assert_array_equal(column(block, channel),
                                                  np.array(table["code"]) / full)
            for i, channel in enumerate(("red", "green", "blue")):
                np.testing.assert_array_equal(column("PostBlendPCC", channel),
                                              blocks["pcc"][channel[0]])
                codes = column("PostBlendGamut", f"{channel}_code")
                if blocks["gamut"] is None:
                    self.assertEqual(len(codes), 0)
                    continue
                np.testing.assert_array_equal(codes, np.array(blocks["gamut"]["nodes"])[:, i])
                axes = np.meshgrid(*3 * [blocks["gamut"]["axis"]], indexing="ij")
                np.testing.assert_array_equal(column("PostBlendGamut", f"in_{channel}"),
                                              axes[i].ravel())

    def test_refusals(self):
        kept = self.folder / "kept"
        for arguments, status, said in (
                (("nothing", "--format", "csv"), 2, "no mode 'nothing'; valid modes: 0 native"),
                (("srgb", "--format", "lut"), 2,
                 "no format 'lut'; known: clf, cube, icc, ti3, csv, json"),
                (("srgb", "--format", "cube", "--size", "1"), 2, "--size: 1 is not from 2 to 129"),
                (("srgb", "--format", "cube", "--size", "130"), 2, "130 is not from 2 to 129"),
                (("srgb", "--format", "clf", "--size", "9"), 2, "--size belongs to --format cube"),
                (("srgb", "--format", "csv", "--target"), 2, "--target belongs to --format ti3"),
                (("srgb", "--format", "csv", "--icc-version", "4"), 2, "belongs to --format icc"),
                (("srgb", "--format", "csv", "--json"), 2, "export takes no --json"),
                (("srgb",), 2, "--format is required"),
                (("srgb", "--format", "csv", "--gc-entries", "0"), 2, "--gc-entries"),
                (("srgb", "--format", "csv", "--igc-bits", "40"), 1, "answered")):
            with self.subTest(arguments=arguments):
                kept.write_text("before")
                done = self.zelctl("phone-oled", "export", *arguments, "-o", str(kept))
                self.assertEqual(done.returncode, status, done.stderr)
                self.assertIn(said, done.stderr)
                self.assertEqual(kept.read_text(), "before")
        done = self.zelctl("odd", "export", "paper", "--format", "csv", "-o", "/no/such/folder/x")
        self.assertEqual(done.returncode, 2)
        self.assertIn("can't write /no/such/folder/x: No such file or directory", done.stderr)


if __name__ == "__main__":
    main()
