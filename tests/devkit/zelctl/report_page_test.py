#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""The report's page, its measurements and its arguments.

In the environment besides: PARSER, a mode parser that is not the reference one.
"""
import copy
import html
import html.parser
import json
import os
import pathlib
import re
import unittest

import numpy as np

from ciede2000 import difference, lab
from colour import xyz_of
from report_support import PANELS, SETTINGS, Folder, run


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
