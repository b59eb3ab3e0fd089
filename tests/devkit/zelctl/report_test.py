#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""The report's own figures, against pictures that go through `zelctl render --image`.

In the environment: ZELCTL, the program; PANELS, the folder of the sample panels; PARSER, a
mode parser that is not the reference one. The panel's light, the targets and the differences
are those of tests/devkit/judge, which shares nothing with the program.
"""
import copy
import html
import html.parser
import json
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

import numpy as np

import patches
from ciede2000 import difference, lab
from colour import WHITES, bradford, pq_signal, rgb_to_xyz, xyz_of
from judge import render
from panel_model import Panel, Target

ZELCTL = os.environ["ZELCTL"].split()
PANELS = {path.stem: json.loads(path.read_text())
          for path in pathlib.Path(os.environ["PANELS"]).glob("*.json")}
SETTINGS = ["--color-transform", "night:3400", "--dimming", "0.6"]


def run(*arguments):
    return subprocess.run([*ZELCTL, *arguments], capture_output=True, text=True, check=False)


class Folder(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def write(self, name, text):
        path = self.folder / name
        path.write_text(text)
        return str(path)

    def report(self, description, *arguments):
        """The JSON, and the page."""
        page = self.folder / "page.html"
        panel = self.write("panel.json", json.dumps(description))
        ended = run("--panel", panel, "report", "--json", "-o", str(page), *arguments)
        self.assertEqual(ended.returncode, 0, ended.stderr)
        return json.loads(ended.stdout), page.read_text()


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


class Measurements(Folder):
    def setUp(self):
        super().setUp()
        patch_list = self.folder / "srgb.ti1"
        ended = run("report", "srgb", "--patches", str(patch_list))
        self.assertEqual((ended.returncode, ended.stdout), (0, ""), ended.stderr)
        self.text = patch_list.read_text()
        rows = re.search(r"BEGIN_DATA\n(.*)END_DATA", self.text, re.S)[1].split("\n")[:-1]
        self.rows = np.array([row.split()[1:] for row in rows], float)

    def file(self, xyz, header="", identifier="CTI3"):
        rows = "\n".join(f"{i} {' '.join(map(str, row))}" for i, row in
                         enumerate(np.hstack([self.rows[:, :3], xyz])))
        return self.write("m.ti3", f'{identifier}\n# made up\n{header}\n'
                          'KEYWORD "DEVICE_CLASS"\nDEVICE_CLASS "DISPLAY"\nNUMBER_OF_FIELDS 7\n'
                          'BEGIN_DATA_FORMAT\nSAMPLE_ID RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z\n'
                          f'END_DATA_FORMAT\nNUMBER_OF_SETS {len(xyz)}\nBEGIN_DATA\n{rows}\n'
                          'END_DATA\n')

    def test_PatchesAreThoseOfTheReport(self):
        printed, _ = self.report(PANELS["phone-oled"], "srgb")
        patches_of = [p for s in printed["modes"][0]["sets"].values() for p in s["patches"]]
        codes = {tuple(p["content"]): p["shown"]["xyz"] for p in patches_of}
        self.assertEqual(len(self.rows), len(codes))
        self.assertIn(f"NUMBER_OF_SETS {len(codes)}\n", self.text)
        for row in self.rows:
            xyz = codes[tuple(np.round(255 * row[:3] / 100).astype(int))]
            np.testing.assert_allclose(row[3:], np.array(xyz) * 100 / 812, 0, 1e-5)

    def test_AreComparedWithTargetAndPrediction(self):
        dimmer = 0.95 * self.rows[:, 3:] * 812 / 100  # as predicted, but for the peak
        for header, xyz, absolute in (
                ('NORMALIZED_TO_Y_100 "NO"', dimmer, True),
                ('NORMALIZED_TO_Y_100 "YES"\nLUMINANCE_XYZ_CDM2 "1 812 1"',
                 dimmer * 100 / 812, True),
                ("", dimmer, False)):
            with self.subTest(header=header):
                printed, page = self.report(PANELS["phone-oled"], "srgb", "--measured",
                                            self.file(xyz, header))
                found = printed["measured"]
                self.assertEqual((found["found"], found["missing"]), (64, 0))
                self.assertEqual(found["absolute"], absolute)
                self.assertAlmostEqual(found["white_measured"], 812 * (0.95 if absolute else 1), 2)
                white = np.array(xyz_of((0.3098, 0.3235))) * 812
                for key, part in found["sets"].items():
                    all_patches = printed["modes"][0]["sets"][key]["patches"]
                    shown = np.array([p["shown"]["xyz"] for p in all_patches])
                    target = np.array([p["target"]["xyz"] for p in all_patches])
                    seen = shown * (0.95 if absolute else 1)
                    for name, one, other in (
                            ("from_prediction", shown, seen), ("from_target", target, seen),
                            ("from_prediction_equal_white", shown, shown),
                            ("from_target_equal_white", target, shown)):
                        error = difference(lab(one, white), lab(other, white))
                        self.assertAlmostEqual(part[name]["mean"], error.mean(), 3)
                        self.assertAlmostEqual(part[name]["max"], error.max(), 3)
                self.assertIn("64 of 64 patches were measured", page)

    def test_BadFilesAreRefused(self):
        good = pathlib.Path(self.file(self.rows[:, 3:])).read_text()
        last = self.rows.shape[0] - 1
        cases = [
            ("", "line 1: the file ends"),
            (good[:len(good) // 2], "the file ends where END_DATA should follow"),
            (good.replace("CTI3", "CTI1"), "expected CTI3"),
            (good.replace("XYZ_Y", "XYY_Y"), "no field XYZ_Y"),
            (good.replace("RGB_G", "RGB_R"), "'RGB_R' stands twice"),
            (good.replace("NUMBER_OF_SETS ", "NUMBER_OF_SETS 1"), "NUMBER_OF_SETS says"),
            (good.replace("FIELDS 7", "FIELDS 8"), "NUMBER_OF_FIELDS says 8, there are 7"),
            (good.replace("FIELDS 7", "FIELDS -7"), "'-7' is no count"),
            (good.replace(f"\n{last} ", "\n"), "the last set has 6 of 7 fields"),
            (re.sub(r"\n0 \S+", "\n0 nan", good), "RGB_R: expected a number from 0 to 100"),
            (re.sub(r"\n0 \S+", "\n0 100.5", good), "RGB_R: expected a number from 0 to 100"),
            (good.replace("100.0 100.0 100.0", "100.0 100.0 99.0"), "no measurement of full white"),
            (good.replace('"DISPLAY"', '"DISPLAY'), "line 5: a quote isn't closed"),
            (good.replace("CTI3\n", 'CTI3\nNORMALIZED_TO_Y_100 "MAYBE"\n'), "expected YES or NO"),
            (good.replace("CTI3\n", 'CTI3\nLUMINANCE_XYZ_CDM2 "0 0 0"\n'), "luminance of white"),
            (good.replace("CTI3\n", "CTI3\nBEGIN_DATA 1 2 END_DATA\n"), "data without"),
            ("CTI3 " + "x" * (17 << 20), "larger than 16 MiB"),
            ("CTI3 BEGIN_DATA_FORMAT " + " ".join(map(str, range(1 << 20))), "4096 fields"),
            ("CTI3 BEGIN_DATA_FORMAT a END_DATA_FORMAT BEGIN_DATA" + " 1" * (1 << 22), "65536 sets"),
            ("\x00\x1b[2J" * 99, "the file ends"),
        ]
        for text, reason in cases:
            with self.subTest(reason=reason):
                self.assertNotEqual(text, good)
                page = self.folder / "kept.html"
                page.write_text("kept")
                ended = run("report", "srgb", "-o", str(page), "--measured",
                            self.write("bad.ti3", text))
                self.assertEqual(ended.returncode, 2)
                self.assertIn(reason, ended.stderr)
                self.assertNotIn("\x1b", ended.stderr)
                self.assertEqual(page.read_text(), "kept")


class Page(html.parser.HTMLParser):
    """Collects what a browser would see, and complains about tags that don't match."""
    VOID = {"meta", "br"}

    def __init__(self, text):
        super().__init__()
        self.open, self.tags, self.addresses, self.texts = [], [], [], []
        self.feed(text)
        self.close()

    def handle_starttag(self, tag, attrs):
        self.tags.append(tag)
        self.addresses += [value for name, value in attrs if name in ("href", "src")]
        if tag not in self.VOID:
            self.open.append(tag)

    def handle_startendtag(self, tag, attrs):
        self.tags.append(tag)

    def handle_endtag(self, tag):
        assert self.open.pop() == tag, tag

    def handle_data(self, data):
        self.texts.append(data)


class Html(Folder):
    def test_IsOneDocumentThatFetchesNothing(self):
        _, text = self.report(PANELS["phone-oled"], *SETTINGS)
        page = Page(text)
        self.assertEqual(page.open, [])
        self.assertFalse({"script", "link", "img", "iframe", "object", "use"} & set(page.tags))
        self.assertTrue(all(address.startswith("#mode-") for address in page.addresses))
        self.assertIsNone(re.search(r"url\(|@import|https?:", text))
        self.assertIn("prefers-color-scheme: dark", text)
        self.assertIn("width=device-width", text)
        modes = len(PANELS["phone-oled"]["modes"])
        self.assertEqual(page.tags.count("figure"), 1 + 8 * modes)
        captions = re.findall(r"<figcaption>(.*?)</figcaption>", text, re.S)
        self.assertEqual(len(captions), page.tags.count("figure"))
        for caption in captions:  # each names a standard, or where the target is stated
            self.assertRegex(html.unescape(caption), r"CIE 15|ISO/CIE|IEC 6|ITU-R|SMPTE|panel's description")

    def test_ShowsTextsOfThePanelAsTheyAre(self):
        description = copy.deepcopy(PANELS["lcd-srgb"])
        label = "</title><script>alert(\"1\")</script>&amp;'"
        description["name"] = description["modes"][0]["label"] = label
        _, text = self.report(description, "0")
        page = Page(text)
        self.assertNotIn("script", page.tags)
        self.assertIn(f"Colours of {label}", page.texts)
        self.assertIn(f"{label} ", page.texts)


class Arguments(Folder):
    def test_AreRefusedWithAReason(self):
        parser = os.environ["PARSER"]
        panel = self.write("one.json", json.dumps(
            {**PANELS["lcd-srgb"], "modes": PANELS["lcd-srgb"]["modes"][:1]}))
        for arguments, reason in (
                (["report"], "where to?"),
                (["report", "-o", "page.pdf"], "must end in .html"),
                (["report", "--json", "--patches", "a.ti1"], "--patches takes one MODE"),
                (["report", "srgb", "--patches", "a.txt"], "must end in .ti1"),
                (["report", "0", "1", "--json", "--measured", panel], "--measured takes one MODE"),
                (["report", "0", "--json", "--measured", "/nowhere"], "can't read measurements"),
                (["report", "nothing", "--json"], "no mode 'nothing'"),
                (["report", "srgb", "0", "1", "--json"], "mode 1 srgb (1:1:0) is named twice"),
                (["--parser", parser, "report", "--json"], "say with --panel"),
                (["--panel", panel, "--parser", parser, "report", "--json"], "has no mode")):
            with self.subTest(arguments=arguments):
                ended = run(*arguments)
                self.assertEqual(ended.returncode, 2)
                self.assertIn(reason, ended.stderr)


if __name__ == "__main__":
    unittest.main()
