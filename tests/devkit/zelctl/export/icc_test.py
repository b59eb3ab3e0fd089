#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""ICC profiles, as Little CMS and ArgyllCMS read them, against the panel's description."""
import copy
import subprocess

import numpy as np
from PIL import ImageCms

from support import PANELS, ZELCTL, Case, all_colors, main, needs, run

from ciede2000 import difference, lab
from colour import bradford, xyz_of
from panel_model import Panel

CODES = np.concatenate([all_colors(np.linspace(0, 255, 5).round()),
                        np.repeat(np.arange(0, 256, 5)[:, None], 3, axis=1)])
RAMPS = {"red": [[0, 0.4], [20, 1.1], [128, 40], [255, 200]],
         "green": [[0, 0.4], [51, 9], [255, 201]], "blue": [[0, 0.4], [255, 90]]}


def through(path):
    """Absolute XYZ by transicc, white at Y = 1, for CODES."""
    text = run(["transicc", "-v0", "-i", str(path), "-o", "*XYZ", "-t3", "-d0"],
               "\n".join(" ".join(map(str, code)) for code in CODES))
    rows = [line.split() for line in text.splitlines()]
    return np.array([row for row in rows if len(row) == 3], float) / 100


class Icc(Case):
    def setUp(self):
        super().setUp()
        ramps = copy.deepcopy(PANELS["lcd-srgb"])
        ramps["name"] = "Größe 面板"
        ramps["panel"]["transfer"] = {"ramp": RAMPS, "full_scale": 255}
        linear = copy.deepcopy(PANELS["odd"])
        linear["panel"]["transfer"] = "linear"
        self.panels = {**PANELS, "ramps": ramps, "linear": linear}
        for name, description in self.panels.items():
            self.add_panel(name, description)

    @needs("transicc")
    def test_little_cms_shows_the_panel(self):
        for name, description in self.panels.items():
            panel = Panel(description)
            shown = panel.shown(CODES / 255) / panel.peak
            white = xyz_of(panel.white)
            for version in "2", "4":
                with self.subTest(panel=name, version=version):
                    path, _ = self.export(name, "native", "icc", "--icc-version", version)
                    found = difference(lab(through(path), white), lab(shown, white))
                    self.assertLess(found.max(), 0.02)
                    profile = ImageCms.ImageCmsProfile(str(path)).profile
                    self.assertEqual(int(profile.version), int(version))
                    text = description["name"].encode("utf-8" if version == "4" else "ascii",
                                                      "replace").decode()
                    self.assertEqual(profile.profile_description, text)
                    self.assertEqual(profile.device_class, "mntr")
                    self.assertAlmostEqual(profile.luminance[0][1], panel.peak, delta=1e-4)
                    d50 = [0.9642, 1, 0.8249]
                    np.testing.assert_allclose(profile.chromatic_adaptation[0],
                                               bradford(white, d50), atol=1e-4)

    @needs("profcheck")
    def test_argyll_shows_the_panel(self):
        for name in self.panels:
            with self.subTest(panel=name):
                path, _ = self.export(name, "native", "icc", "--icc-version", "2")
                run(["iccdump", str(path)])
                patches, _ = self.export(name, "native", "ti3", "--target")
                said = run(["profcheck", "-k", str(patches), str(path)])
                self.assertLess(float(said.split("max. = ")[1].split(",")[0]), 0.02, said)

    def test_tells_what_a_profile_cannot_be(self):
        for kind in "icc", "ti3":  # of a panel that nobody described
            done = subprocess.run([*ZELCTL, "--parser", "own.so", "export", "native", "--format",
                                   kind, "-o", str(self.folder / "x")],
                                  capture_output=True, text=True, check=False)
            self.assertEqual(done.returncode, 2)
            self.assertIn("say with --panel", done.stderr)
        for mode, options, said in (
                ("srgb", (), "asks for other colours than the panel's own"),
                ("native", ("--dimming", "0.5"), "takes no colour transform, LTM and dimming"),
                ("native", ("--icc-version", "3"), "--icc-version: expected 2 or 4, not '3'")):
            with self.subTest(mode=mode, options=options):
                done = self.zelctl("phone-oled", "export", mode, "--format", "icc", "-o",
                                   str(self.folder / "x.icc"), *options)
                self.assertEqual(done.returncode, 2)
                self.assertIn(said, done.stderr)


if __name__ == "__main__":
    main()
