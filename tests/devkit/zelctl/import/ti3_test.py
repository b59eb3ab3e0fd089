#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Measurements by others and, of the sample panels, by ArgyllCMS's simulated meter."""
import copy
import pathlib

import numpy as np

from importing import ImportCase, differences
from support import PANELS, main, needs, run

from panel_model import Panel

COLORD = pathlib.Path("/usr/libexec/installed-tests/colord")
needs_colord = needs("colord-tests", (COLORD / "reference.ti3").exists())
PRIMARIES = {"red": (1, 0, 0), "green": (0, 1, 0), "blue": (0, 0, 1)}
RAMPS = {"red": [[0, 0], [40, 3], [90, 17], [255, 200]],
         "green": [[0, 0], [51, 9], [255, 201]], "blue": [[0, 0], [130, 20], [255, 90]]}


def table(rows, device_class="DISPLAY", scale=100, keywords=()):
    """CTI3 of rows of signals from 0 to 1 and XYZ."""
    text = f'CTI3\n\nDEVICE_CLASS "{device_class}"\nCOLOR_REP "RGB_XYZ"\n'
    text += "".join(f'{key} "{value}"\n' for key, value in dict(keywords).items())
    text += "NUMBER_OF_FIELDS 7\nBEGIN_DATA_FORMAT\n"
    text += "SAMPLE_ID RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z\nEND_DATA_FORMAT\n"
    text += f"NUMBER_OF_SETS {len(rows)}\nBEGIN_DATA\n"
    for i, (signal, xyz) in enumerate(rows):
        text += " ".join([str(i + 1), *(f"{scale * s:.6g}" for s in signal),
                          *(f"{value:.9g}" for value in xyz)]) + "\n"
    return text + "END_DATA\n"


def patches(greys=33, singles=0):
    """Signals of black, white, primaries, greys, and steps of each channel."""
    wanted = [(0, 0, 0), (1, 1, 1), *PRIMARIES.values()]
    wanted += [(g, g, g) for g in np.linspace(0, 1, greys)[1:-1]]
    for full in PRIMARIES.values():
        wanted += [tuple(s * np.array(full)) for s in np.linspace(0, 1, singles + 2)[1:-1]]
    return np.array(wanted)


class Ti3(ImportCase):
    def rows(self, signals, panel="odd", unit=1.0):
        return list(zip(signals, Panel(PANELS[panel]).shown(signals) * unit))

    @needs("fakeread")
    def test_there_and_back(self):
        channels = copy.deepcopy(PANELS["lcd-srgb"])
        channels["panel"]["transfer"] = {"ramp": RAMPS, "full_scale": 255}
        self.add_panel("channels", channels)
        every_code, usual = ("-s2", "-g256"), ("-s17", "-g33")
        for name, original, steps, limit in (
                *((name, panel, every_code, 0.05) for name, panel in PANELS.items()),
                *((name, panel, usual, 0.35) for name, panel in PANELS.items()),
                ("channels", channels, ("-s256",), 0.05)):
            with self.subTest(panel=name, steps=steps):
                profile, _ = self.export(name, "native", "icc", "--icc-version", "2")
                base = self.folder / name
                run(["targen", "-d3", "-e4", "-B4", "-f0", *steps, str(base)])
                run(["fakeread", str(profile), str(base)])
                found, lines = self.imported(base.with_suffix(".ti3"), "--bit-depth", "10",
                                             "--peak", str(original["panel"]["luminance"]["peak"]))
                self.assertLess(differences(Panel(original), Panel(found)).max(), limit)
                self.assertTrue(any("4 readings" in line for line in lines))

    @needs_colord
    def test_measurements_of_others(self):
        for name in "reference", "measured":
            path = COLORD / f"{name}.ti3"
            self.refused(path, "the transfer function (--transfer)", "--bit-depth", "8")
            description, lines = self.imported(path, "--bit-depth", "8", "--transfer", "2.2",
                                               "--targets", "srgb,bt2020_st2084")
            self.assert_renders(description)
            data = path.read_text().split("BEGIN_DATA\n")[1].split("END_DATA")[0]
            data = np.array([row.split()[1:] for row in data.splitlines()], float)
            mean = lambda *rgb: data[(data[:, :3] == rgb).all(axis=1)][:, 3:].mean(axis=0)
            panel = description["panel"]
            self.assertAlmostEqual(panel["luminance"]["peak"], mean(1, 1, 1)[1], delta=1e-4)
            self.assertAlmostEqual(panel["luminance"]["black"], mean(0, 0, 0)[1], delta=1e-4)
            for colour, rgb in PRIMARIES.items():
                light = mean(*rgb) - mean(0, 0, 0)
                np.testing.assert_allclose(panel["primaries"][colour], light[:2] / light.sum(),
                                           atol=2e-6)
            self.assertTrue(any(line.startswith("residual: of 5 colours") for line in lines))
        # As the first of them was measured: white is not quite the sum of the primaries.
        self.assertIn("98.9194 % of its luminance",
                      "\n".join(self.imported(COLORD / "reference.ti3", "--bit-depth", "8",
                                              "--transfer", "srgb")[1]))

    def test_units(self):
        """One panel, however the file counts signal and light."""
        signals = patches()
        peak = PANELS["odd"]["panel"]["luminance"]["peak"]
        normalized = {"NORMALIZED_TO_Y_100": "YES"}
        stated = {"LUMINANCE_XYZ_CDM2": f"190 {peak} 160"}
        cases = [
            (table(self.rows(signals), scale=1, keywords={"NORMALIZED_TO_Y_100": "NO"}), ()),
            (table(self.rows(signals, unit=100 / peak), keywords={**normalized, **stated}), ()),
            (table(self.rows(signals, unit=100 / peak), scale=255, keywords=stated), ()),
            (table(self.rows(signals, unit=100 / peak)), ("--peak", str(peak))),
            (table(self.rows(signals)).replace("CTI3", "CGATS.17", 1), ("--peak", str(peak))),
        ]
        for text, options in cases:
            path = self.written("made.ti3", text)
            found, _ = self.imported(path, "--bit-depth", "8", *options)
            self.assertLess(differences(Panel(PANELS["odd"]), Panel(found)).max(), 0.35)
            if options:
                self.refused(path, "so give it by an option: peak (--peak)", "--bit-depth", "8")

    def test_noise_and_what_is_said_of_it(self):
        """Repeats are averaged, dark greys that fall are evened out, residuals are true."""
        random = np.random.default_rng(5)
        signals = np.concatenate([patches(greys=65)] * 3)
        falling = {1 / 64: 2 / 64, 2 / 64: 1 / 64}
        seen = [[falling.get(value, value) for value in signal] for signal in signals]
        rows = [(signal, xyz * (1 + 0.01 * random.standard_normal()) +
                 0.02 * random.standard_normal(3))
                for signal, (_, xyz) in zip(signals, self.rows(np.array(seen)))]
        keywords = {"NORMALIZED_TO_Y_100": "NO"}
        path = self.written("made.ti3", table(rows, keywords=keywords) + "\nCAL\n")
        found, lines = self.imported(path, "--bit-depth", "8")
        said = "\n".join(lines)
        for words in ("made.ti3: measurements: 204 readings of 68 colours", "white: 3 readings",
                      "after a calibration", "greys: light falls with rising signal; evened out",
                      "repeats: at most CIEDE2000", "transfer: from 65 greys, one for all"):
            self.assertIn(words, said)
        self.assertLess(differences(Panel(PANELS["odd"]), Panel(found)).max(), 2)
        residual = next(line for line in lines if line.startswith("residual: of 68 colours"))
        self.assertTrue(0.05 < float(residual.split("CIEDE2000 ")[1].split()[0]) < 1, residual)

    def test_channels(self):
        """Steps of single channels, with greys between them where light adds up."""
        description = copy.deepcopy(PANELS["lcd-srgb"])
        description["panel"]["transfer"] = {"ramp": RAMPS, "full_scale": 255}
        signals = patches(greys=65, singles=3)
        light = Panel(description).shown(signals)
        keywords = {"NORMALIZED_TO_Y_100": "NO"}
        path = self.written("made.ti3", table(list(zip(signals, light)), keywords=keywords))
        found, lines = self.imported(path, "--bit-depth", "8")
        self.assertTrue(any("the channels' shares in 60 greys" in line for line in lines), lines)
        self.assertLess(differences(Panel(description), Panel(found)).mean(), 0.02)
        dimmer = np.where((signals == signals[:, :1]).all(axis=1)[:, None], 0.9 * light, light)
        path = self.written("made.ti3", table(list(zip(signals, dimmer)), keywords=keywords))
        _, lines = self.imported(path, "--bit-depth", "8")
        self.assertTrue(any("single-channel steps; 5 of red" in line for line in lines), lines)

    def test_refuses(self):
        rows = self.rows(patches(greys=9))
        whole = table(rows, keywords={"NORMALIZED_TO_Y_100": "NO"})
        absolute = lambda chosen: table(chosen, keywords={"NORMALIZED_TO_Y_100": "NO"})
        without = lambda rgb: absolute([row for row in rows if tuple(row[0]) != rgb])
        falling = [(s, xyz * (0.3 if s[0] == s[1] == 0.5 else 1)) for s, xyz in rows]
        for content, said in (
                (whole.replace("CTI3", "CTI1", 1), "line 1: expected CTI3"),
                (whole[:-30], "line "),
                (whole.replace("NUMBER_OF_SETS 12", "NUMBER_OF_SETS 99999999999"), "there are 12"),
                (table(rows, device_class="OUTPUT"), "DEVICE_CLASS is 'OUTPUT': expected"),
                (whole.replace("RGB_G", "CMYK_G"), "there is no field RGB_G"),
                (whole.replace("XYZ_X XYZ_Y XYZ_Z", "LAB_L LAB_A LAB_B"), "no field XYZ_X"),
                (whole.replace("\n3 100", "\n3 1e999"), "RGB_R: expected a number"),
                (whole.replace("\n3 100", "\n3 -5"), "RGB_R: expected a number from 0 to"),
                (whole.replace('Y_100 "NO"', 'Y_100 "MAYBE"'), "expected YES or NO"),
                (table(rows, keywords={"LUMINANCE_XYZ_CDM2": "1 -2 3"}), "the second is the luminance of white"),
                (table(rows, scale=50), "the largest device value should be that of full signal: 1, 100"),
                (without((1, 1, 1)), "no full white was measured (RGB 100 100 100 %)"),
                (without((0, 0, 1)), "no full blue was measured (RGB 0 0 100 %)"),
                (without((0, 0, 0)), "so give it by an option: black (--black)"),
                (absolute(falling), "greys: light falls by more than 2 % of its range, near"),
                (absolute([(s, xyz * 1e-3) for s, xyz in rows]), "luminance.peak: expected"),
                (absolute([(s, xyz * (2, 1, 0.2)) for s, xyz in rows[:2]] + rows[2:]), "$.panel.white"),
                (absolute(rows * 6000), "65536")):
            with self.subTest(said=said):
                self.refused(self.written("made.ti3", content), said, "--bit-depth", "8")


if __name__ == "__main__":
    main()
