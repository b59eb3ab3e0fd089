"""What the tests of `zelctl import` share."""
import json
import pathlib
import sys

import numpy as np

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "export"))
from support import Case, all_colors

from ciede2000 import difference, lab
from colour import xyz_of

SIGNALS = np.concatenate([all_colors(np.linspace(0, 255, 9).round()),
                          np.repeat(np.arange(256)[:, None], 3, axis=1)]) / 255
EVERYTHING = ("--peak", "300", "--black", "0.05", "--bit-depth", "8")


def differences(one, other):
    """CIEDE2000 between two panels, each relative to its peak."""
    white = xyz_of(one.white)
    return difference(lab(one.shown(SIGNALS) / one.peak, white),
                      lab(other.shown(SIGNALS) / other.peak, white))


class ImportCase(Case):
    def run_import(self, path, *options):
        """The file that was to be written, and how the run ended."""
        output = self.folder / "imported.json"
        output.unlink(missing_ok=True)
        return output, self.zelctl(None, "import", str(path), "-o", str(output), *options)

    def imported(self, path, *options):
        """The description, and what was said."""
        output, done = self.run_import(path, *options)
        self.assertEqual((done.returncode, done.stderr), (0, ""), path)
        description = json.loads(output.read_text())
        lines = done.stdout.splitlines()
        self.assertEqual(description["source"], lines)
        return description, lines

    def refused(self, path, said, *options):
        output, done = self.run_import(path, *options)
        self.assertEqual((done.returncode, done.stdout), (2, ""), done.stderr)
        self.assertTrue(done.stderr.startswith("zelctl: "), done.stderr)
        self.assertEqual(done.stderr.count("\n"), 1)
        self.assertIn(said, done.stderr)
        self.assertFalse(output.exists())

    def written(self, name, content):
        path = self.folder / name
        path.write_bytes(content if isinstance(content, bytes) else content.encode())
        return path

    def assert_renders(self, description, label=None):
        """All modes, or one, by the plug-in and the mode parser."""
        self.add_panel("imported-panel", description)
        for mode in [label] if label else [mode["label"] for mode in description["modes"]]:
            done = self.zelctl("imported-panel", "render", mode, "--strict")
            self.assertEqual((done.returncode, done.stderr), (0, ""), mode)
