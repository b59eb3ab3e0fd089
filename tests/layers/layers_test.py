#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Headers of the plug-in keep to the layers that docs/architecture.md lists, and no one
else includes more of it than that page allows."""

import fnmatch
import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGE = ROOT / "docs/architecture.md"
SHIPPED = ["interface", "plugin", "bridge", "modes", "convert", "pcc", "handlers"]
OUTSIDE = ["devkit", "bench", "fuzz", "tests", "examples"]
LENT = ["bridge/library_handle.h", "pcc/pcc_arithmetic.h"]  # besides layers 1 to 3


def layers():
    rows = re.findall(r"^\| (\d) \| (`.*?) \|", PAGE.read_text(), re.M)
    return [(int(layer), pattern) for layer, files in rows
            for pattern in re.findall(r"`(.*?)`", files)]


def files(folders, *endings):
    return [str(f.relative_to(ROOT)) for folder in folders
            for ending in endings for f in sorted((ROOT / folder).rglob(ending))]


def included(file):
    return re.findall(r'^#include "(.*)"', (ROOT / file).read_text(), re.M)


class Layers(unittest.TestCase):
    def setUp(self):
        table = layers()
        self.layer = {}
        for header in files(SHIPPED, "*.h"):
            found = {layer for layer, pattern in table if fnmatch.fnmatch(header, pattern)}
            self.assertEqual(len(found), 1, f"{header}: in layers {found} of {PAGE.name}")
            self.layer[header] = found.pop()

    def test_headers_look_down(self):
        for header, layer in self.layer.items():
            for other in included(header):
                self.assertIn(other, self.layer, f"{header} includes {other}")
                self.assertLessEqual(self.layer[other], layer, f"{header} includes {other}")

    def test_installed_are_the_public_layers(self):
        listed = re.findall(r"^  (\w+/\w+\.h)\b", (ROOT / "cmake/Headers.cmake").read_text(), re.M)
        public = {header for header, layer in self.layer.items() if layer <= 3}
        self.assertEqual(set(listed), public - {"convert/block_table.h"})

    def test_no_header_includes_itself_through_others(self):
        def walk(header, path):
            self.assertNotIn(header, path)
            for other in included(header):
                walk(other, path + [header])
        for header in self.layer:
            walk(header, [])

    def test_what_ships_includes_nothing_else(self):
        for source in files(SHIPPED, "*.cpp"):
            self.assertLessEqual(set(included(source)), set(self.layer), source)

    def test_others_use_what_is_lent(self):
        for file in files(OUTSIDE, "*.h", "*.cpp"):
            for other in included(file):
                self.assertTrue(self.layer.get(other, 0) <= 3 or other in LENT,
                                f"{file} includes {other}")


    def test_converters_and_the_table_of_blocks_name_the_same(self):
        names = [set(re.findall(r"kPostBlend\w+", (ROOT / source).read_text()))
                 for source in ("convert/converter_table.cpp", "convert/block_table.h")]
        self.assertEqual(*names)

if __name__ == "__main__":
    unittest.main(verbosity=2)
