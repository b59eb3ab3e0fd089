#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Judges the colours that `zelctl render --image` makes of test pictures, as an eye would.

Usage: judge.py [--option OPTION ...] PANELS ZELCTL...    prints the figures of all modes

A picture of patches is sent through a mode of a panel. The light that the panel emits for the
resulting 8-bit codes is compared with the light that the mode's standards ask for, by CIEDE2000.
Nothing here is shared with the programs under test.
"""
import argparse
import json
import pathlib
import subprocess
import tempfile

import numpy as np
from PIL import Image

import patches
from ciede2000 import difference
from colour import PRIMARIES, bradford, pq_signal, rgb_to_xyz, xyz_of
from panel_model import Panel, Target


def render(zelctl, description, mode, codes, options=()):
    """The codes that drive the panel for these codes of the mode's content."""
    with tempfile.TemporaryDirectory() as folder:
        panel, source, result = f"{folder}/p.json", f"{folder}/in.png", f"{folder}/out.png"
        pathlib.Path(panel).write_text(json.dumps(description))
        Image.fromarray(codes[None]).save(source)
        run = subprocess.run([*zelctl, "--log-level", "0", "--panel", panel, "render", mode, *options,
                              "--image", source, "-o", result],
                             check=False, capture_output=True, text=True)
        if run.returncode != 0:
            raise RuntimeError(run.stderr)
        return np.asarray(Image.open(result).convert("RGB"))[0]


def hue(xyz, white):
    """Angle in degrees, and chroma, in ICtCp (BT.2100, table 7), which keeps hues best."""
    to_d65 = bradford(white / white[1], xyz_of((0.3127, 0.3290)))
    rgb = np.asarray(xyz) @ (np.linalg.inv(rgb_to_xyz(PRIMARIES["bt2020"])) @ to_d65).T
    lms = rgb @ np.array([[1688, 2146, 262], [683, 2951, 462], [99, 309, 3688]]).T / 4096
    ictcp = pq_signal(np.maximum(lms, 0)) @ np.array(
        [[2048, 2048, 0], [6610, -13613, 7003], [17933, -17390, -543]]).T / 4096
    return np.degrees(np.arctan2(ictcp[:, 2], ictcp[:, 1])), np.hypot(ictcp[:, 1], ictcp[:, 2])


class Judge:
    """Compares what a mode of a panel shows with what it is to show."""

    def __init__(self, zelctl, description, label, options=()):
        mode = next(m for m in description["modes"] if m["label"] == label)
        self.panel = Panel(description)
        self.target = Target(self.panel, mode)
        sets = {"checker": patches.color_checker(self.target), "grey": patches.greys(33),
                "grid": patches.grid(9), "neutrals": patches.greys(256)}
        ends = np.cumsum([len(codes) for codes in sets.values()])[:-1]
        drive = render(zelctl, description, label, np.concatenate(list(sets.values())), options)
        self.sets = {key: (codes, part) for (key, codes), part
                     in zip(sets.items(), np.split(drive, ends))}

    def compare(self, key, white):
        """CIEDE2000 of each colour, of the best that 8 bits allow, and whether it can be shown.

        What can't be shown is compared with the mode's light as far as the panel's peak reaches.
        """
        def seen(xyz):
            return self.target.lab(xyz, white)

        codes, drive = self.sets[key]
        wanted = self.target.xyz(codes / 255)
        light = np.clip(self.panel.light_for(wanted), 0, 1)
        inside = difference(seen(wanted), seen(self.panel.emitted(light))) < 0.05
        inside &= self.target.channels(codes / 255).max(axis=1) <= self.panel.peak * (1 + 1e-9)
        wanted = np.where(inside[:, None], wanted, self.target.xyz(codes / 255, clipped=True))
        shown = self.panel.shown(drive / 255)
        best = self.panel.shown(np.round(255 * self.panel.signal_for(light)) / 255)
        white_xyz = self.target.matrix.sum(axis=1)
        (h1, c1), (h2, c2) = hue(wanted, white_xyz), hue(shown, white_xyz)
        turn = np.where(np.minimum(c1, c2) > 0.02, abs((h1 - h2 + 180) % 360 - 180), 0)
        return {"error": difference(seen(wanted), seen(shown)),
                "floor": difference(seen(wanted), seen(best)), "inside": inside, "hue": turn}

    def figures(self, white="diffuse"):
        """Differences by set of colours, and the largest one between the channels of a neutral.

        `white` is what L* = 100 stands for: the diffuse white of HDR, or the panel's peak.
        """
        checker, grey = self.compare("checker", white), self.compare("grey", white)
        grid = self.compare("grid", "peak")
        outside = ~grid["inside"]
        _, neutrals = self.sets["neutrals"]
        return {"checker": checker["error"][checker["inside"]],
                "checker floor": checker["floor"][checker["inside"]],
                "grey": grey["error"][grey["inside"]],
                "grey floor": grey["floor"][grey["inside"]],
                "grid": grid["error"][~outside],
                "outside": grid["error"][outside], "hue": grid["hue"][outside],
                "tint": np.ptp(neutrals.astype(int), axis=1).max()}


def mean_max(values):
    return f"{values.mean():.2f} / {values.max():.2f}" if values.size else "-"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--option", action="append", default=[], help="of render, as --option=...")
    parser.add_argument("--white", choices=["diffuse", "peak"], default="diffuse")
    parser.add_argument("panels")
    parser.add_argument("zelctl", nargs="+")
    arguments = parser.parse_args()
    print("| panel | mode | 24 patches | best in 8 bits | 33 greys | best in 8 bits | tint | 9^3 inside "
          "| outside | hue outside |\n|---|---|---|---|---|---|---|---|---|---|")
    for panel_file in sorted(pathlib.Path(arguments.panels).glob("*.json")):
        description = json.loads(panel_file.read_text())
        for mode in description["modes"]:
            judge = Judge(arguments.zelctl, description, mode["label"], arguments.option)
            found = judge.figures(arguments.white)
            cells = [mean_max(found[key]) for key in ("checker", "checker floor", "grey",
                                                      "grey floor", "grid", "outside", "hue")]
            cells.insert(4, str(found["tint"]))
            print(f"| {panel_file.stem} | {mode['label']} |", " | ".join(cells), "|")


if __name__ == "__main__":
    main()
