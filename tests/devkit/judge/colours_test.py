#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""What the modes of panels show, within limits of CIEDE2000.

ZELCTL is the command under test; PANELS is the folder of the sample panels.
"""
import copy
import json
import os
import pathlib
import unittest

from judge import Judge

ZELCTL = os.environ["ZELCTL"].split()
PANELS = {path.stem: json.loads(path.read_text())
          for path in pathlib.Path(os.environ["PANELS"]).glob("*.json")}


def variant(panel, label, target, panel_transfer=None):
    """A sample panel, with another transfer function or with another target for one mode."""
    description = copy.deepcopy(PANELS[panel])
    if panel_transfer:
        description["panel"]["transfer"] = panel_transfer
    mode = next(m for m in description["modes"] if m["label"] == label)
    mode.setdefault("target", {}).update(target)
    return description


def gamma_ramp(full_scale, exponent, black, noise=()):
    """17 measurements of a channel of 200 cd/m2; `noise` is added to the darkest."""
    codes = [round(full_scale * i / 16) for i in range(17)]
    light = [black + 200 * (code / full_scale)**exponent for code in codes]
    for i, error in enumerate(noise):
        light[i] += error
    return list(map(list, zip(codes, light)))


class Colours(unittest.TestCase):
    def expect(self, figures, **limits):
        """Limits of mean and largest value by set of colours."""
        for key, (mean, largest) in limits.items():
            with self.subTest(colours=key):
                self.assertLessEqual(figures[key].mean(), mean)
                self.assertLessEqual(figures[key].max(), largest)

    def near_floor(self, found):
        """8-bit output alone costs that much; the tables may add little."""
        for key, mean, largest in ("checker", 0.06, 0.35), ("grey", 0.05, 0.30):
            with self.subTest(colours=key):
                self.assertLessEqual(found[key].mean(), found[f"{key} floor"].mean() + mean)
                self.assertLessEqual(found[key].max(), found[f"{key} floor"].max() + largest)

    def test_sample_panels(self):
        hdr = {"bt2020_hlg": (0.25, 0.72), "bt2020_st2084": (0.24, 0.60)}
        modes = 0
        for name, description in PANELS.items():
            for mode in description["modes"]:
                label = mode["label"]
                with self.subTest(panel=name, mode=label):
                    judge = Judge(ZELCTL, description, label)
                    self.near_floor(judge.figures("diffuse"))
                    if not judge.target.adaptation:
                        continue
                    found = judge.figures("peak")
                    self.assertEqual(found["tint"], 0)
                    self.expect(found, checker=hdr.get(label, (0.20, 0.60)), grey=(0.15, 0.60),
                                grid=(0.22, 0.95))
                    modes += 1
        self.assertGreaterEqual(modes, 10)

    def test_gamut_mapping(self):
        """Outside the panel's gamut: the difference, and the turn of the hue in degrees."""
        for panel, label, mapping, outside, hue in (
                ("lcd-srgb", "display_p3", "none", (2.90, 8.9), (2.7, 8.9)),
                ("lcd-srgb", "display_p3", "desaturate", (3.80, 14.6), (2.1, 16.6)),
                ("lcd-srgb", "display_p3", "nearest", (2.75, 7.9), (1.6, 5.3)),
                ("lcd-srgb", "display_p3", "compress", (2.90, 7.9), (1.7, 5.5)),
                ("phone-oled", "bt2020_hlg", "nearest", (2.25, 6.9), (1.6, 6.5)),
                ("phone-oled", "bt2020_st2084", "nearest", (2.90, 8.1), (2.0, 11.5)),
                ("phone-oled", "bt2020_st2084", "compress", (2.90, 8.1), (2.0, 12.0))):
            with self.subTest(panel=panel, mode=label, mapping=mapping):
                description = variant(panel, label, {"gamut_mapping": mapping})
                found = Judge(ZELCTL, description, label).figures()
                self.expect(found, outside=outside, hue=hue,
                            grid=(0.40, 2.0) if mapping == "compress" else (0.40, 2.3))
                self.assertEqual(found["tint"], 0)

    def test_other_targets(self):
        for panel, label, target in (
                # The panel's black is no part of what they ask for.
                ("odd", "paper_exact", {"transfer": "hlg"}),
                ("odd", "paper_exact", {"transfer": "st2084"}),
                ("phone-oled", "bt2020_st2084", {"transfer": {"st2084": {"peak": 4000}}}),
                ("odd", "paper", {"transfer": {"st2084": {"peak": 1000, "black": 0.005}}})):
            with self.subTest(panel=panel, target=target):
                self.near_floor(Judge(ZELCTL, variant(panel, label, target), label).figures())

    def test_measured_ramps(self):
        """Channels of their own, code values, and a dark end that falls."""
        dark_end = (0.02, -0.01, -0.05, 0.01)
        ramps = {"red": gamma_ramp(255, 2.1, 0.3), "green": gamma_ramp(255, 2.3, 0.4, dark_end),
                 "blue": gamma_ramp(255, 2.0, 0.5)}
        transfer = {"ramp": ramps, "full_scale": 255, "fit": "isotonic"}
        for label in "native", "srgb", "display_p3":
            with self.subTest(mode=label):
                description = variant("lcd-srgb", label, {}, transfer)
                self.near_floor(Judge(ZELCTL, description, label).figures())


if __name__ == "__main__":
    unittest.main()
