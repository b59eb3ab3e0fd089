# SPDX-License-Identifier: Apache-2.0
"""What the tests of `zelctl export` share.

ZELCTL is the command under test, PANELS the folder of the sample panels.
"""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

import numpy as np
from PIL import Image

try:
    import PyOpenColorIO as ocio
except ImportError:
    ocio = None

ROOT = pathlib.Path(__file__).resolve().parents[4]
sys.path.insert(0, str(ROOT / "tests/devkit/judge"))
ZELCTL = os.environ["ZELCTL"].split()
PANELS = {path.stem: json.loads(path.read_text())
          for path in sorted(pathlib.Path(os.environ["PANELS"]).glob("*.json"))}
MODES = [(panel, mode["label"]) for panel in PANELS for mode in PANELS[panel]["modes"]]
SKIPPED = 77  # to ctest


def needs(program, found=None):
    return unittest.skipUnless(found or shutil.which(program),
                               f"no {program} here: scripts/install-deps.sh verify installs it")


needs_ocio = needs("PyOpenColorIO", ocio)


def run(command, text=None):
    done = subprocess.run(command, input=text, capture_output=True, text=True, check=False)
    if done.returncode != 0:
        raise AssertionError(f"{command}: {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout


class Case(unittest.TestCase):
    """With a folder of its own, and panels in it."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        for name, description in PANELS.items():
            self.add_panel(name, description)

    def add_panel(self, name, description):
        (self.folder / f"{name}.json").write_text(json.dumps(description))

    def zelctl(self, panel, *arguments):
        own = ["--panel", str(self.folder / f"{panel}.json")] if panel else []
        return subprocess.run([*ZELCTL, *own, *arguments], capture_output=True, text=True,
                              check=False)

    def export(self, panel, mode, kind, *options):
        """The file's path, and what was said."""
        path = self.folder / f"{panel}-{mode}{''.join(options)}.{kind}".replace("/", "_")
        done = self.zelctl(panel, "export", mode, "--format", kind, "-o", str(path), *options)
        self.assertEqual(done.returncode, 0, done.stderr)
        return path, done.stderr

    def render(self, panel, mode, codes, *options):
        """8-bit codes through `render --image`."""
        source, result = self.folder / "in.png", self.folder / "out.png"
        Image.fromarray(codes[None]).save(source)
        done = self.zelctl(panel, "render", mode, "--image", str(source), "-o", str(result),
                           *options)
        self.assertEqual(done.returncode, 0, done.stderr)
        return np.asarray(Image.open(result).convert("RGB"))[0]


def all_colors(codes):
    codes = np.asarray(codes, np.uint8)
    return np.stack(np.meshgrid(codes, codes, codes, indexing="ij"), axis=-1).reshape(-1, 3)


def main():
    """Tests that could not run are no success."""
    result = unittest.main(exit=False, verbosity=2).result
    sys.exit(1 if not result.wasSuccessful() else SKIPPED if result.skipped else 0)
