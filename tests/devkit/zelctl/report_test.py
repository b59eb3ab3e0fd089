#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""The report's own figures, against pictures that go through `zelctl render --image`.

The panel's light, the targets and the differences are those of tests/devkit/judge, which
shares nothing with the program.
"""
import copy
import unittest

import numpy as np

import patches
from ciede2000 import difference, lab
from colour import WHITES, bradford, pq_signal, rgb_to_xyz, xyz_of
from judge import render
from panel_model import Panel, Target
from report_support import PANELS, SETTINGS, ZELCTL, Folder


def share_inside(panel, target):
    """Of points spread evenly over the target's triangle, the share within the panel's."""
    steps = (np.arange(1500) + 0.5) / 1500
    a, b = np.meshgrid(np.sqrt(steps), steps)  # uniform over the area
    points = (1 - a)[..., None] * target[0] + (a * (1 - b))[..., None] * target[1] \
        + (a * b)[..., None] * target[2]
    sides = []
    for i in range(3):
        along, to = panel[(i + 1) % 3] - panel[i], points - panel[i]
        sides.append(along[0] * to[..., 1] - along[1] * to[..., 0])
    return (np.all(np.array(sides) >= 0, axis=0) | np.all(np.array(sides) <= 0, axis=0)).mean()


def uniform(xy):
    x, y = np.moveaxis(np.asarray(xy, float), -1, 0)
    return np.stack([4 * x, 9 * y], axis=-1) / (-2 * x + 12 * y + 3)[..., None]


class Figures(Folder):
    def expected(self, description, mode):
        """Of a mode of the JSON: what the panel is to show, and shows, of all its patches."""
        panel = Panel(description)
        target = Target(panel, next(m for m in description["modes"]
                                    if m["label"] == mode["label"]))
        signal = {"hlg": 0.75, "st2084": pq_signal(203)}.get(str(target.transfer), 1)
        if "st2084" in target.transfer:
            signal = pq_signal(203)
        white = target.xyz(np.full(3, signal))
        return panel, target, signal, white

    def check_chart(self, mode, target, codes):
        """Content of the chart: HDR states its light; of other curves white is full signal."""
        if target.is_absolute():
            error = codes - patches.color_checker(target).astype(int)
            self.assertLessEqual(abs(error).max(), 1)
            return
        primaries = [mode["target"]["primaries"][c] for c in ("red", "green", "blue", "white")]
        light = patches.color_checker_xyz() @ bradford(xyz_of(WHITES["D65"]),
                                                       xyz_of(primaries[3])).T \
            @ np.linalg.inv(rgb_to_xyz(primaries)).T
        peak, black = target.panel.peak, target.panel.black
        below, above = ((target.channels(np.clip(codes + step, 0, 255) / 255) - black)
                        / (peak - black) for step in (-0.51, 0.51))
        light = np.clip(light, 0, 1)
        self.assertTrue(np.all((below <= light + 1e-9) & (light <= above + 1e-9)))

    def check_patches(self, description, mode):
        panel, target, signal, white = self.expected(description, mode)
        sets = {key: value["patches"] for key, value in mode["sets"].items()}
        code = round(255 * signal)
        corners = [(1, 0, 0), (0, 1, 0), (0, 0, 1), (0, 1, 1), (1, 0, 1), (1, 1, 0)]
        wanted = {"greys": patches.greys(33), "primaries": code * np.array(corners),
                  "white": np.full((1, 3), code)}
        codes = {key: np.array([p["content"] for p in value]) for key, value in sets.items()}
        for key, expected in wanted.items():
            self.assertEqual(codes[key].tolist(), expected.tolist(), key)
        self.check_chart(mode, target, codes["color_checker"])
        drive = render(ZELCTL, description, mode["label"],
                       np.concatenate(list(codes.values())).astype(np.uint8))
        drive = np.split(drive, np.cumsum([len(c) for c in codes.values()])[:-1])
        for (key, part), out in zip(sets.items(), drive):
            with self.subTest(patches=key):
                self.assertEqual([p["drive"] for p in part], out.tolist())
                asked, shown = target.xyz(codes[key] / 255), panel.shown(out / 255)
                # BT.2100 prints HLG's luminance weights to four places.
                np.testing.assert_allclose([p["target"]["xyz"] for p in part], asked, 1e-5, 1e-7)
                np.testing.assert_allclose([p["shown"]["xyz"] for p in part], shown, 1e-6, 1e-7)
                error = difference(lab(asked, white), lab(shown, white))
                np.testing.assert_allclose([p["ciede2000"] for p in part], error, 0, 1e-4)
                nearest = panel.emitted(np.clip(panel.light_for(asked), 0, 1))
                inside = difference(lab(asked, white), lab(nearest, white)) < 0.05
                self.assertEqual([p["in_gamut"] for p in part], inside.tolist())
                for name, chosen in ("in_gamut", error[inside]), ("out_of_gamut", error[~inside]):
                    said = mode["sets"][key][name]
                    self.assertEqual(said["count"], len(chosen))
                    if len(chosen):
                        self.assertAlmostEqual(said["mean"], chosen.mean(), 4)
                        self.assertAlmostEqual(said["max"], chosen.max(), 4)

    def check_neutrals(self, description, mode):
        panel, target, _, _ = self.expected(description, mode)
        codes = patches.greys(256)
        drive = render(ZELCTL, description, mode["label"], codes)
        asked, shown = target.xyz(codes / 255)[:, 1], panel.shown(drive / 255)[:, 1]
        np.testing.assert_allclose(mode["tone_curve"],
                                   np.stack([codes[:, 0], asked, shown], axis=1), 1e-6, 1e-7)
        if mode["neutral_spread"] is not None:
            self.assertEqual(mode["neutral_spread"], np.ptp(drive.astype(int), axis=1).max())

    def check_coverage(self, mode):
        said = mode["coverage"]
        corners = [np.array([primaries[c] for c in ("red", "green", "blue")])
                   for primaries in (self.panel_primaries, mode["target"]["primaries"])]
        self.assertAlmostEqual(said["xy"], share_inside(*corners), 2)
        # In u'v' the triangles are other ones: a projective map keeps lines, not areas.
        self.assertAlmostEqual(said["uv"], share_inside(*map(uniform, corners)), 2)

    def check(self, description, *modes):
        printed, page = self.report(description, *modes)
        self.panel_primaries = printed["panel"]["primaries"]
        labels = modes or [m["label"] for m in description["modes"]]
        self.assertEqual([m["label"] for m in printed["modes"]], list(labels))
        for mode in printed["modes"]:
            with self.subTest(panel=description["name"], mode=mode["label"]):
                self.check_patches(description, mode)
                self.check_neutrals(description, mode)
                self.check_coverage(mode)
                for key in "color_checker", "greys":
                    inside = mode["sets"][key]["in_gamut"]
                    self.assertIn(f"<td>{inside['mean']:.2f} / {inside['max']:.2f}<", page)

    def test_OfAllSampleModes(self):
        for description in PANELS.values():
            self.check(description)

    def test_OfOtherTargetsAndPanels(self):
        for panel, label, target, transfer in (
                ("odd", "paper_exact", {"primaries": "bt2020", "transfer": "hlg"}, None),
                ("lcd-srgb", "srgb", {"transfer": "st2084"}, None),
                ("phone-oled", "srgb", {"transfer": {"st2084": {"peak": 4000}}}, None),
                ("lcd-srgb", "native", {}, {"full_scale": 255, "fit": "isotonic", "ramp": {
                    "red": [[0, 0.3], [9, 0.29], [40, 1.1], [255, 60]],
                    "green": [[0, 0.3], [128, 44], [255, 200]],
                    "blue": [[0, 0.2], [99, 3], [255, 20]]}})):
            description = copy.deepcopy(PANELS[panel])
            mode = next(m for m in description["modes"] if m["label"] == label)
            mode.setdefault("target", {}).update(target)
            if transfer:
                description["panel"]["transfer"] = transfer
            self.check(description, label)

    def test_AtThePanelsDepth(self):
        printed, _ = self.report(PANELS["lcd-srgb"], "display_p3")  # has 8 bits
        for part in printed["modes"][0]["sets"].values():
            self.assertEqual(part["in_gamut_at_panel_depth"], part["in_gamut"])
        # The native mode gives codes back, to 6 bits here.
        printed, _ = self.report(PANELS["odd"], "native")
        panel, target, _, white = self.expected(PANELS["odd"], printed["modes"][0])
        signal = patches.greys(33) / 255
        error = difference(lab(target.xyz(signal), white),
                           lab(panel.shown(np.round(63 * signal) / 63), white))
        found = printed["modes"][0]["sets"]["greys"]["in_gamut_at_panel_depth"]
        self.assertAlmostEqual(found["mean"], error.mean(), 2)
        self.assertAlmostEqual(found["max"], error.max(), 2)

    def test_OfColourSteps(self):
        description = PANELS["phone-oled"]
        printed, page = self.report(description, "srgb", "bt2020_hlg", *SETTINGS)
        self.assertEqual(page.count("Colour steps: luminance"), 2 * 2)  # title and label
        for mode in printed["modes"]:
            panel, _, signal, white = self.expected(description, mode)
            codes = (round(255 * signal) * np.array(
                [(1, 1, 1), (1, 0, 0), (0, 1, 0), (0, 0, 1)])).astype(np.uint8)
            alone = None
            for step, options in zip(mode["steps"], ([], SETTINGS[:2], SETTINGS), strict=True):
                shown = panel.shown(render(ZELCTL, description, mode["label"], codes, options) / 255)
                alone = shown if alone is None else alone
                said = [step[c] for c in ("white", "red", "green", "blue")]
                np.testing.assert_allclose([s["xyz"] for s in said], shown, 1e-6)
                error = difference(lab(alone, white), lab(shown, white))
                np.testing.assert_allclose([s["ciede2000_from_mode"] for s in said], error, 0, 1e-5)
        # The patches are judged without them.
        plain, _ = self.report(description, "srgb")
        self.assertEqual(printed["modes"][0]["sets"], plain["modes"][0]["sets"])


if __name__ == "__main__":
    unittest.main()
