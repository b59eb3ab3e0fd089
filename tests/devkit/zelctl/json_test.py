"""What zelctl prints as JSON is what docs/zelctl-json.md says.

In the environment: ZELCTL, the program; GUIDE, that page; BAD, a library with faults.
"""

import json
import os
import pathlib
import re
import subprocess
import unittest

import jsonschema

GUIDE = pathlib.Path(os.environ["GUIDE"]).read_text()
SCHEMA = json.loads(re.search(r"^```json\n(.*?)^```$", GUIDE, re.M | re.S)[1])
OWN = f"--parser {os.environ['BAD']} --panel /dev/null"


def no_constant(name):
    raise ValueError(f"{name} is no JSON")


class Json(unittest.TestCase):
    def printed(self, arguments, fault):
        run = subprocess.run([*os.environ["ZELCTL"].split(), "--json", *arguments.split()],
                             capture_output=True, text=True, env={**os.environ, "FAULT": fault})
        return run.returncode, json.loads(run.stdout, parse_constant=no_constant)

    def test_IsAsThePageSays(self):
        cases = [
            ("modes", "modes", "", 0),
            ("caps", "caps", "", 0),
            ("render vivid", "render", "", 0),
            ("render vivid --tables", "render", "", 0),
            ("render srgb --color-transform inversion --dimming 0.5 --steps", "render", "", 0),
            ("assets vivid", "blocks", "", 0),
            ("dither", "blocks", "", 0),
            ("report --dimming 0.5", "report", "", 0),
            ("validate", "validation", "", 0),
            (f"{OWN} validate --timeout 1", "validation", "crashes", 1),
            (f"{OWN} render 0", "render", "not a number", 0),
            (f"{OWN} render 0 --strict", "render", "unknown name", 1),
            (f"{OWN} assets 0", "failure", "assets fail", 1),
            ("--panel /nowhere modes", "failure", "", 2),
            ("render nothing", "failure", "", 2),
            ("no-such-command", "failure", "", 2),
        ]
        for arguments, document, fault, status in cases:
            with self.subTest(arguments=arguments, fault=fault):
                ended, printed = self.printed(arguments, fault)
                self.assertEqual(ended, status)
                self.assertIn(document, GUIDE)
                schema = {**SCHEMA, "$ref": f"#/$defs/{document}"}
                jsonschema.Draft202012Validator(schema).validate(printed)
                # The schema is no looser than what is printed: members are those it names.
                self.assertEqual(set(printed), set(SCHEMA["$defs"][document]["properties"]))


if __name__ == "__main__":
    unittest.main()
