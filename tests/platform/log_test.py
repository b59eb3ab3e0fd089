#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""The release plug-in on the platform's own log library, built for this machine (Debian's
android-liblog), and on the stand-in: the same lines, each after its library's prefix.

Usage: tests/platform/log_test.py
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
ZELCTL = ROOT / "build/release/bin/zelctl"

TIME = r"\d\d-\d\d \d\d:\d\d:\d\d"
PLATFORM = re.compile(rf"(?P<tag>\S+) (?P<priority>[A-Z]) {TIME} +\d+ +\d+ (?P<text>.*)")
STAND_IN = re.compile(
    rf"{TIME}\.\d{{3}} +\d+ +\d+ (?P<priority>[A-Z]) (?P<tag>\S+) *: (?P<text>.*)")


def platform_library():
    for library in pathlib.Path("/usr/lib").glob("*/android/liblog.so"):
        return library
    sys.exit("android-liblog is not installed: scripts/install-deps.sh verify")


class PlatformLog(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        # Alone in a folder: beside it may lie a libcutils, which has no property_get.
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        (pathlib.Path(cls.folder.name) / "liblog.so").symlink_to(platform_library())

    def lines(self, form, level, *arguments):
        """Of a run on the library that writes `form`: "PRIORITY TAG text" of each line."""
        library = self.folder.name if form is PLATFORM else ""
        run = subprocess.run([ZELCTL, "--log-level", str(level), *arguments], text=True,
                             stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                             env={**os.environ, "LD_LIBRARY_PATH": library})
        found = []
        for line in run.stderr.splitlines():
            if line and not line.startswith("zelctl: "):
                self.assertRegex(line, form)
                found.append("{priority} {tag} {text}".format(**form.fullmatch(line).groupdict()))
        return found

    def test_lines_of_each_level(self):
        no_parser = ("--panel", "/dev/null", "modes")
        switch = ("render", "srgb", "--dimming", "0.5")
        log = r"I PXL ZelTarnImpl::"
        created = log + r"GetVcPostBlendInterface\(\):\d+ ZelTarnImpl created"
        refused = r"E TARN-PARSER /dev/null: .*"
        failed = r"E PXL ZelTarnImpl::thread_handler\(\):\d+ failed to intialize mode parser"
        modes = log + r"Init\(\):\d+ Get 7 modes in mode list"
        dimming = log + r"SetDimmingPcc\(\):\d+ pcc attenuation factor is 0\.500000"
        called = log + r"ProcessOps\(\):\d+ Process Ops called, op = 0"
        done = log + r"ProcessModeRenderIntent\(\):\d+ Successfully with mode \(gamut 1, .*"
        for level, arguments, expected in (
                (0, no_parser, [refused, failed]),
                (1, no_parser, [created, refused, failed]),
                (2, no_parser, [created, refused, failed]),
                (0, switch, []),
                (1, switch, [created, modes]),
                (2, switch, [created, modes, dimming, called, done])):
            with self.subTest(level=level, arguments=arguments):
                lines = self.lines(PLATFORM, level, *arguments)
                self.assertEqual(len(lines), len(expected), lines)
                for line, pattern in zip(lines, expected):
                    self.assertRegex(line, f"^{pattern}$")
                self.assertEqual(lines, self.lines(STAND_IN, level, *arguments))

    def test_long_lines_are_cut_alike(self):
        panel = "/dev/" + "./" * 1000 + "null"
        cut = self.lines(PLATFORM, 0, "--panel", panel, "modes")
        self.assertEqual(len(cut[0]), len("E TARN-PARSER ") + 1023)
        self.assertEqual(cut, self.lines(STAND_IN, 0, "--panel", panel, "modes"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
