#!/usr/bin/env python3
"""Judges the colours that `zelctl render --image` makes of test pictures, as an eye would.

Usage: judge.py [--panels DIR] [--report] ZELCTL...

A picture of patches is sent through every mode of every panel. The light that the panel emits for
the resulting codes is compared with the light that the mode's standards ask for. Nothing here is
shared with the programs under test.
"""
import argparse
import json
import pathlib
import subprocess
import sys
import tempfile

import numpy as np
from PIL import Image

import patches
from ciede2000 import difference
from panel_model import Panel, Target, relative_light


class Render:
    """Codes through a mode of a panel."""

    def __init__(self, zelctl, panel_file, options=()):
        self.command = [*zelctl, "--log-level", "0", "render"]
        self.options = ["--panel", str(panel_file), *options]

    def __call__(self, mode, codes):
        with tempfile.TemporaryDirectory() as folder:
            source, result = f"{folder}/in.png", f"{folder}/out.png"
            Image.fromarray(codes[None]).save(source)
            subprocess.run([*self.command, mode, *self.options, "--image", source, "-o", result],
                           check=True, stdout=subprocess.DEVNULL)
            return np.asarray(Image.open(result).convert("RGB"))[0]


class Judge:
    def __init__(self, panel_file, mode, render):
        self.panel = Panel(json.loads(pathlib.Path(panel_file).read_text()))
        self.mode, self.render = mode, render
        self.target = Target(self.panel, mode)

    def differences(self, codes, white="diffuse"):
        """CIEDE2000 of each colour, and whether the panel can show it."""
        signal = codes / 255
        shown = self.panel.shown(self.render(self.mode["label"], codes) / 255)
        in_lab = lambda xyz: self.target.lab(xyz, white)
        wanted = self.target.xyz(signal)
        nearest = self.panel.emitted(np.clip(self.panel.light_for(wanted), 0, 1))
        inside = difference(in_lab(wanted), in_lab(nearest)) < 0.05
        asked = in_lab(self.target.xyz(signal, clipped=True))
        return np.where(inside, difference(in_lab(wanted), in_lab(shown)),
                        difference(asked, in_lab(shown))), inside

    def floor(self, codes):
        """The differences that the best codes of 8 bits leave."""
        wanted = self.target.xyz(codes / 255)
        signal = np.interp(np.clip(self.panel.light_for(wanted), 0, 1),
                           relative_light(self.panel.transfer, np.linspace(0, 1, 65536)),
                           np.linspace(0, 1, 65536))
        shown = self.panel.shown(np.round(255 * signal) / 255)
        return difference(self.target.lab(wanted), self.target.lab(shown))

    def figures(self):
        checker_peak = self.differences(patches.color_checker(self.target), "peak")[0]
        checker, fits = self.differences(patches.color_checker(self.target))
        grey, grey_fits = self.differences(patches.greys(33))
        outside, grid_fits = self.differences(patches.grid(9), "peak")
        floor = self.floor(patches.color_checker(self.target))[fits]
        grey_floor = self.floor(patches.greys(33))[grey_fits]
        drive = self.render(self.mode["label"], patches.greys(256)).astype(int)
        return {"checker": checker[fits], "checker_peak": checker_peak[fits], "grey": grey[grey_fits], "grid": outside[grid_fits],
                "outside": outside[~grid_fits], "floor": floor, "grey_floor": grey_floor, "tint": np.ptp(drive, axis=1).max()}


def mean_max(values):
    return f"{values.mean():5.2f}{values.max():6.2f}" if values.size else "    -     -"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--panels", required=True)
    parser.add_argument("--option", action="append", default=[], help="handed to render")
    parser.add_argument("zelctl", nargs="+")
    arguments = parser.parse_args()
    print(f"{'':27}{'24 patches':>12}  {'33 greys':>12}  {'tint':>4}  {'9^3 inside':>12}  {'outside':>12}")
    for panel_file in sorted(pathlib.Path(arguments.panels).glob("*.json")):
        render = Render(arguments.zelctl, panel_file, arguments.option)
        for mode in json.loads(panel_file.read_text())["modes"]:
            found = Judge(panel_file, mode, render).figures()
            print(f"{panel_file.stem:11}{mode['label']:15} ",
                  f"{mean_max(found['checker']):>12}({found['checker'].size}) [{mean_max(found['floor'])}] {mean_max(found['checker_peak'])} ",
                  f"{mean_max(found['grey']):>12}({found['grey'].size}) [{mean_max(found['grey_floor'])}] {found['tint']:3}",
                  f"{mean_max(found['grid']):>12}", f"{mean_max(found['outside']):>12}({found['outside'].size})")


if __name__ == "__main__":
    sys.exit(main())
