# SPDX-License-Identifier: Apache-2.0
"""Reports on panels, as JSON and as a page.

In the environment: ZELCTL, the program; PANELS, the folder of the sample panels.
"""
import json
import os
import pathlib
import subprocess
import tempfile
import unittest

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
