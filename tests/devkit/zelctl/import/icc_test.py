#!/usr/bin/env python3
"""Display profiles of others, and the panel's own through `zelctl export` and back."""
import pathlib

import numpy as np
from PIL import ImageCms

from icc_file import curve, matrix, profile, srgb_tags, xyz
from importing import EVERYTHING, SIGNALS, ImportCase, differences
from support import PANELS, main, needs, run

from ciede2000 import difference, lab
from colour import bradford, xyz_of
from panel_model import Panel, relative_light

ARGYLL = pathlib.Path("/usr/share/color/argyll/ref")
COLORD = pathlib.Path("/usr/share/color/icc/colord")
MEASURED = pathlib.Path("/usr/libexec/installed-tests/colord/ibm-t61.icc")
FREE = pathlib.Path("/usr/share/color/icc")
SHIPPED = [MEASURED, *ARGYLL.glob("*.ic?"), *COLORD.glob("*.icc"), *FREE.glob("*.icc")]
D50 = np.array([0.9642, 1, 0.8249])
needs_shipped = needs("profiles", all(path.exists() for path in
                                      (MEASURED, ARGYLL, COLORD, FREE / "sRGB.icc")))

# As the standards have them; colord's are of a D65 with more places.
KNOWN = {
    ARGYLL / "sRGB.icm": [(0.64, 0.33), (0.30, 0.60), (0.15, 0.06), (0.3127, 0.3290)],
    ARGYLL / "DisplayP3.icm": [(0.68, 0.32), (0.265, 0.69), (0.15, 0.06), (0.3127, 0.3290)],
    ARGYLL / "SMPTE431_P3.icm": [(0.68, 0.32), (0.265, 0.69), (0.15, 0.06), (0.314, 0.351)],
    ARGYLL / "Rec2020.icm": [(0.708, 0.292), (0.17, 0.797), (0.131, 0.046), (0.3127, 0.3290)],
    FREE / "sRGB.icc": [(0.64, 0.33), (0.30, 0.60), (0.15, 0.06), (0.3127, 0.3290)],
    COLORD / "AdobeRGB1998.icc": [(0.64, 0.33), (0.21, 0.71), (0.15, 0.06), (0.3127, 0.3290)],
    COLORD / "NTSC-RGB.icc": [(0.67, 0.33), (0.21, 0.71), (0.14, 0.08), (0.3101, 0.3162)],
}


def is_rgb_display(path):
    opened = ImageCms.ImageCmsProfile(str(path)).profile
    return opened.device_class == "mntr" and opened.xcolor_space.strip() == "RGB"


def relative(path):
    """XYZ by Little CMS, relative to D50."""
    text = run(["transicc", "-v0", "-i", str(path), "-o", "*XYZ", "-t1", "-d0"],
               "\n".join(" ".join(map(str, 255 * signal)) for signal in SIGNALS[::7]))
    return np.array([row for row in map(str.split, text.splitlines()) if len(row) == 3], float) / 100


class Icc(ImportCase):
    def test_there_and_back(self):
        signals = np.repeat(np.linspace(0, 1, 4096)[:, None], 3, axis=1)
        for name, original in PANELS.items():
            self.add_panel(name, {**original, "name": original["name"] + " 面"})
            for version in "2", "4":
                with self.subTest(panel=name, version=version):
                    path, _ = self.export(name, "native", "icc", "--icc-version", version)
                    found, _ = self.imported(path, "--bit-depth", "10", *(
                        ("--black", "0") if (name, version) == ("phone-oled", "4") else ()))
                    self.assertEqual(found["name"], original["name"] + " ?")
                    one, other = original["panel"], found["panel"]
                    for colour in "red", "green", "blue":
                        np.testing.assert_allclose(other["primaries"][colour],
                                                   one["primaries"][colour], atol=1e-4)
                    np.testing.assert_allclose(other["white"], one["white"], atol=1e-4)
                    self.assertEqual(other["luminance"]["peak"], one["luminance"]["peak"])
                    self.assertAlmostEqual(other["luminance"]["black"],
                                           one["luminance"].get("black", 0),
                                           delta=one["luminance"]["peak"] / 65535)
                    np.testing.assert_allclose(relative_light(other["transfer"], signals),
                                               relative_light(one["transfer"], signals),
                                               atol=1 / 65535)
                    if not isinstance(one["transfer"], dict) or "gamma" in one["transfer"]:
                        self.assertEqual(other["transfer"], one["transfer"])

    @needs_shipped
    @needs("transicc")
    def test_shipped_profiles(self):
        targets = "srgb,display_p3,dcip3,bt2020_hlg,bt2020_st2084"
        taken = 0
        for path in SHIPPED:
            with self.subTest(profile=path):
                if not is_rgb_display(path):
                    self.refused(path, "not a profile of an RGB display; supported are")
                elif "ProPhoto" in path.name:  # its blue gives 0.01 % of white's light
                    self.refused(path, "$.panel.primaries.blue[1]: expected a number from 0.001",
                                 *EVERYTHING)
                else:
                    taken += 1
                    description, _ = self.imported(path, *EVERYTHING, "--targets", targets)
                    self.assertEqual(len(description["modes"]), 6)
                    self.assert_renders(description, None if path in KNOWN else "bt2020_hlg")
                    panel = Panel({**description, "panel": {
                        **description["panel"], "luminance": {"peak": 1}}})
                    adapted = panel.shown(SIGNALS[::7]) @ bradford(xyz_of(panel.white), D50).T
                    found = relative(path)
                    # Black is told apart: a profile may have it in its curves.
                    found -= found[0] * (1 - found[:, 1:2] / found[:, 1].max())
                    limit = 0.2 if path == MEASURED else 0.05
                    self.assertLess(difference(lab(found, D50), lab(adapted, D50)).max(), limit)
        self.assertGreater(taken, 35)

    @needs_shipped
    def test_known_colours(self):
        rounded = 0
        for path, known in KNOWN.items():
            with self.subTest(profile=path):
                description, lines = self.imported(path, *EVERYTHING)
                panel = description["panel"]
                found = [*panel["primaries"].values(), panel["white"]]
                np.testing.assert_allclose(found, known, atol=3e-4)
                rounded += any("red: x + y exceeds 1" in line for line in lines)
        self.assertEqual(rounded, 4)

    @needs_shipped
    def test_a_measured_display(self):
        """By its tags as iccdump shows them."""
        description, lines = self.imported(MEASURED, "--bit-depth", "6")
        panel = description["panel"]
        self.assertAlmostEqual(panel["luminance"]["peak"], 130.095886, delta=1e-6)
        self.assertAlmostEqual(panel["luminance"]["black"], 0.001297 * 130.0959, delta=1e-4)
        np.testing.assert_allclose(panel["white"], [0.343386, 0.354112], atol=1e-5)
        self.assertEqual(len(panel["transfer"]["ramp"]["blue"]), 256)
        self.assertTrue(any("after a calibration" in line for line in lines))

    def test_adaptation(self):
        """With chad, without it, and with a media white point that says otherwise."""
        tags = srgb_tags()
        to_d50 = bradford(xyz_of((0.3127, 0.3290)), D50)
        chad = {"chad": matrix(*to_d50.flatten())}
        media = {"wtpt": xyz(*D50)}
        expected = [(0.64, 0.33), (0.30, 0.60), (0.15, 0.06), (0.3127, 0.3290)]
        for extra in {}, chad, {**chad, **media}, {**chad, "wtpt": xyz(1, 1, 1)}:
            with self.subTest(extra=list(extra)):
                path = self.written("made.icc", profile({**tags, **extra}))
                description, lines = self.imported(path, *EVERYTHING)
                found = [*description["panel"]["primaries"].values(), description["panel"]["white"]]
                np.testing.assert_allclose(found, expected, atol=3e-4)
        self.assertIn("adaptation to D50: undone by the chad tag, not by the media white point, "
                      "which is x 0.3333 y 0.3333", lines)

    def test_what_options_say_goes(self):
        tags = {**srgb_tags(), "lumi": xyz(0, 200, 0), "bkpt": xyz(0.001, 0.001, 0.001)}
        path = self.written("made.icc", profile(tags))
        description, _ = self.imported(path, "--bit-depth", "6")
        self.assertEqual(description["panel"]["luminance"]["peak"], 200)
        self.assertAlmostEqual(description["panel"]["luminance"]["black"], 0.2, delta=0.002)
        description, lines = self.imported(path, "--peak", "400", "--transfer", "srgb",
                                           "--bit-depth", "6", "--name", "its name")
        self.assertEqual((description["name"], description["panel"]["transfer"],
                          description["panel"]["bit_depth"]), ("its name", "srgb", 6))
        self.assertAlmostEqual(description["panel"]["luminance"]["black"], 0.4, delta=0.004)
        self.assertIn("peak: 400 cd/m2, by --peak; the file says 200", lines)
        said = self.zelctl(None, "import", str(path), "-o", "/dev/null", "--bit-depth", "6",
                           "--json").stdout
        self.assertIn('"peak: 200 cd/m2"', said)

    def test_curves(self):
        """Falling light is evened out up to 2 %, equal neighbours told apart, long ones thinned."""
        rising = [round(65535 * (i / 255)**3) for i in range(256)]
        noisy = [*rising[:61], rising[60] - 30, rising[60] - 60, *rising[63:]]
        falling = [*rising[:200], 20000, *rising[201:]]
        long = [round(65535 * (0.9 * i / 9999 + 0.1 * (i / 9999)**3)) for i in range(10000)]
        for entries, said in ((noisy, "evened out by at most"), (long, "steps of 16 bits off")):
            tags = {**srgb_tags(), "gTRC": curve(*entries)}
            description, lines = self.imported(self.written("made.icc", profile(tags)), *EVERYTHING)
            self.assertTrue(any(said in line for line in lines), lines)
            signals = np.repeat(np.linspace(0, 1, len(entries))[:, None], 3, axis=1)
            light = relative_light(description["panel"]["transfer"], signals)[:, 1]
            np.testing.assert_allclose(light, np.array(entries) / 65535,
                                       atol=2e-3 if entries is noisy else 1 / 65535)
        self.refused(self.written("made.icc", profile({**srgb_tags(), "rTRC": curve(*falling)})),
                     "rTRC: light falls by more than 2 % of its range", *EVERYTHING)

    def test_refuses(self):
        tags = srgb_tags()
        whole = profile({**tags, "lumi": xyz(0, 200, 0)})
        without = lambda *names: {key: tags[key] for key in tags if key not in names}
        curves = ("rTRC", "gTRC", "bTRC")
        for content, said in (
                (b"", "empty"),
                (whole[:-20], "truncated: the header says"),
                (b"\0" * 36 + b"acsp", "truncated"),
                (b"\x7fELF" + bytes(200), "neither an ICC profile nor"),
                (bytes(17 << 20), "larger than 16 MiB"),
                (whole[:128] + b"\xff\xff\xff\xff" + whole[132:], "Little CMS says: Too many tags"),
                (profile({**without(*curves), "A2B0": b"mft2" + bytes(60)}),
                 "a profile of tables (A2B0) alone; supported are"),
                (profile(without("rTRC")), "no matrix and TRC curves; supported are"),
                (profile(tags, space=b"GRAY"), "not a profile of an RGB display"),
                (profile(tags, device=b"prtr"), "not a profile of an RGB display"),
                (profile({**tags, "rXYZ": tags["rTRC"]}), "rXYZ"),
                (profile({**tags, "gTRC": b"curv\0\0\0\0\xff\xff\xff\xff"}), "gTRC"),
                (profile({**tags, "chad": matrix(1, 0, 0)}), "chad is damaged; Little CMS says: "),
                (profile({**tags, "chad": matrix(*[0] * 9)}), "chad"),
                (profile({**tags, "wtpt": xyz(0, 0, 0)}), "media white point (wtpt) is no colour"),
                (profile(without("wtpt")), "wtpt"),
                (profile({**tags, "bXYZ": tags["gXYZ"]}), "red, green and blue lie on one line"),
                (profile({**tags, "rXYZ": xyz(0.45, 0.23, -0.02)}), "x + y must not exceed 1"),
                (profile({**tags, "rTRC": curve(9, 9)}), "rTRC: full signal is no brighter")):
            with self.subTest(said=said):
                self.refused(self.written("made.icc", content), said, *EVERYTHING)
        made = self.written("made.icc", profile(tags))
        self.refused(made, "so give it by an option: peak (--peak), black (--black), the depth "
                           "of the panel's signal (--bit-depth)")
        self.refused(made, "--peak: '-1' is not from 1 to 10000", "--peak", "-1")
        self.refused(made, "--black: '101' is not from 0 to 100", "--black", "101")
        self.refused(made, "--targets: no target 'p3'; there are: srgb, ", "--targets", "srgb,p3")
        self.refused(made, "--transfer: expected linear, srgb or an exponent", "--transfer", "0.5")
        done = self.zelctl(None, "import", str(made), "-o", str(made), *EVERYTHING)
        self.assertEqual((done.returncode, made.read_bytes()), (2, profile(tags)))


if __name__ == "__main__":
    main()
