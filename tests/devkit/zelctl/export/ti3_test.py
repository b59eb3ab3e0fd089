#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Patches as CGATS, as ArgyllCMS's colverify compares them, against the report's figures."""
import copy
import json
import re

import numpy as np

from support import MODES, PANELS, Case, main, needs, run

from ciede2000 import difference, lab

HDR = ("bt2020_hlg", "bt2020_st2084")


def table(path):
    """RGB and XYZ of the samples, in the file's order."""
    rows = path.read_text().split("BEGIN_DATA\n")[1].split("END_DATA")[0].splitlines()
    values = np.array([row.split() for row in rows], float)
    assert list(values[:, 0]) == list(range(1, len(rows) + 1))
    return values[:, 1:4], values[:, 4:7]


def colverify(target, measured):
    """Largest and mean CIEDE2000, both relative to their full white."""
    said = run(["colverify", "-k", "-n", str(target), str(measured)])
    return [float(n) for n in
            re.search(r"Total errors \(CIEDE2000\): +peak = (.*), avg = (.*)", said).groups()]


@needs("colverify")
class Ti3(Case):
    def test_all_modes(self):
        for panel, mode in MODES:
            with self.subTest(panel=panel, mode=mode):
                shown, _ = self.export(panel, mode, "ti3")
                wanted, _ = self.export(panel, mode, "ti3", "--target")
                self.assertEqual(colverify(shown, shown), [0, 0])
                largest, mean = self.expected(panel, mode, wanted, shown)
                found = colverify(wanted, shown)
                # Each file is relative to its own white, whose luminance 8 bits may miss.
                self.assertAlmostEqual(found[0], largest, delta=0.03)
                self.assertAlmostEqual(found[1], mean, delta=1e-3)

    def expected(self, panel, mode, wanted, shown):
        if mode in HDR:  # which the report judges relative to diffuse white
            (codes, xyz), (_, other) = table(wanted), table(shown)
            white = xyz[(codes == 100).all(axis=1)][0]
            found = difference(lab(xyz, white), lab(other, white))
        else:
            report = json.loads(self.zelctl(panel, "report", mode, "--json").stdout)
            sets = report["modes"][0]["sets"].values()
            found = np.array(list({tuple(patch["content"]): patch["ciede2000"]
                                   for one in sets for patch in one["patches"]}.values()))
        return found.max(), found.mean()

    def test_patches_are_those_to_measure(self):
        path = self.folder / "patches.ti1"
        done = self.zelctl("phone-oled", "report", "bt2020_hlg", "--patches", str(path))
        self.assertEqual(done.returncode, 0, done.stderr)
        for options in (), ("--target",):
            codes, _ = table(self.export("phone-oled", "bt2020_hlg", "ti3", *options)[0])
            np.testing.assert_allclose(codes, table(path)[0], atol=1e-4)

    def test_luminance_of_full_white(self):
        peak = PANELS["phone-oled"]["panel"]["luminance"]["peak"]
        for mode, options, share in (("native", (), 1), ("native", ("--dimming", "0.5"), 0.5),
                                     ("bt2020_st2084", (), 1),  # 10000 cd/m2 are asked for
                                     ("bt2020_st2084", ("--target",), 1)):
            with self.subTest(mode=mode, options=options):
                text = self.export("phone-oled", mode, "ti3", *options)[0].read_text()
                luminance = float(re.search(r'CDM2 "\S+ (\S+)', text)[1])
                self.assertAlmostEqual(luminance / peak, share, delta=0.005)

    def test_a_black_mode_is_refused(self):
        description = copy.deepcopy(PANELS["phone-oled"])
        description["panel"]["luminance"]["black"] = 0
        self.add_panel("dark", description)
        done = self.zelctl("dark", "export", "native", "--format", "ti3", "--dimming", "0",
                           "-o", str(self.folder / "x.ti3"))
        self.assertEqual(done.returncode, 2)
        self.assertIn("full white of the mode has no light", done.stderr)


if __name__ == "__main__":
    main()
