# SPDX-License-Identifier: Apache-2.0
"""What zelctl prints with --json, against the schemas of its page.

From the environment: ZELCTL (words of a command), PAGE, REPORT_PAGE, PANELS, FAKE_PLUGIN, BAD_LIBRARIES.
"""

import copy
import glob
import json
import os
import re
import subprocess
import tempfile
import unittest

import jsonschema

BAD = os.environ["BAD_LIBRARIES"]
OWN = f"--parser {BAD} --algo {BAD} --panel /dev/null"
FAKE = f"--plugin {os.environ['FAKE_PLUGIN']} --panel /dev/null"
PANELS = sorted(glob.glob(os.environ["PANELS"] + "/*.json"))

FOLDER = tempfile.TemporaryDirectory()
MEASURED = FOLDER.name + "/measured.ti3"
with open(MEASURED, "w", encoding="utf-8") as measured:
    measured.write("""CTI3
NORMALIZED_TO_Y_100 "NO"
NUMBER_OF_FIELDS 6
BEGIN_DATA_FORMAT
RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z
END_DATA_FORMAT
NUMBER_OF_SETS 5
BEGIN_DATA
0 0 0 0 0 0
100 0 0 41 21 2
0 100 0 36 72 12
0 0 100 18 7 95
100 100 100 95 100 109
END_DATA
""")

# Heading, exit status, arguments, fault of the library.
RUNS = [
    *[("Modes", 0, f"modes --panel {panel}", "") for panel in PANELS],
    *[("Validate", 0, f"validate --panel {panel}", "") for panel in PANELS],
    *[("Blocks", 0, f"dither --panel {panel}", "") for panel in PANELS],
    *[("Render", 0, f"render {mode} --tables --igc-entries 33", "") for mode in range(7)],
    *[("Blocks", 0, f"assets {mode} --tables", "") for mode in range(7)],
    ("Capabilities", 0, "caps", ""),
    ("Render", 0, "render vivid --steps --dimming 0.5 --from native --gc-entries 2", ""),
    ("Render", 0, f"{FAKE} render 0", ""),
    ("Render", 0, f"{OWN} render 0", "not a number"),
    ("Render", 1, f"{OWN} render 0 --strict", "render fails"),
    ("Render", 1, f"{OWN} render 0 --strict", "unknown name"),
    ("Validate", 1, f"validate --parser {BAD}", "crashes"),
    ("Validate", 0, f"validate --parser {BAD}", "label twice"),
    ("Import", 0, f"import {MEASURED} -o {FOLDER.name}/panel.json --bit-depth 8 --transfer srgb", ""),
    ("Error", 2, f"import {MEASURED} -o {FOLDER.name}/panel.json", ""),
    ("Error", 1, f"{OWN} modes", "Init fails"),
    ("Error", 1, f"{OWN} assets 0", "assets fail"),
    ("Error", 2, "--panel /nowhere modes", ""),
    ("Error", 2, "render nothing", ""),
    ("Error", 2, "plot 0 -o a.svg", ""),
    ("Error", 2, "no-such-command", ""),
    ("Error", 2, "--no-such-option", ""),
]


def schemas():
    with open(os.environ["PAGE"], encoding="utf-8") as page:
        text = page.read()
    sections = re.split(r"^## (\w+)$", text, flags=re.M)[1:]
    read = {heading: json.loads(body.split("```")[1].removeprefix("json"))
            for heading, body in zip(sections[::2], sections[1::2])}
    parts = read.pop("Parts")
    return {heading: {**schema, **parts} for heading, schema in read.items()}


def closed(schema):
    """The same schema, but for objects that hold keys it doesn't name."""
    if isinstance(schema, list):
        return [closed(part) for part in schema]
    if not isinstance(schema, dict):
        return schema
    result = {key: closed(value) for key, value in schema.items()}
    if schema.get("type") == "object":
        result["additionalProperties"] = False
    return result


def validator(schema):
    jsonschema.Draft202012Validator.check_schema(schema)
    return jsonschema.Draft202012Validator(closed(schema))


def keys_lost(document):
    """Copies of a document, each without one key."""
    def places(value, way):
        inner = value.items() if isinstance(value, dict) else enumerate(
            value) if isinstance(value, list) else ()
        for key, part in inner:
            if isinstance(value, dict):
                yield way, key
            yield from places(part, [*way, key])
    for way, key in places(document, []):
        lost = copy.deepcopy(document)
        holder = lost
        for step in way:
            holder = holder[step]
        del holder[key]
        yield way, key, lost


def alternatives(schema, way="$"):
    """Every branch and enumerated value."""
    if isinstance(schema, list):
        for i, part in enumerate(schema):
            yield from alternatives(part, f"{way}[{i}]")
    if isinstance(schema, dict):
        for i, part in enumerate(schema.get("anyOf", [])):
            yield f"{way}.anyOf[{i}]", part
        for i, value in enumerate(schema.get("enum", [])):
            yield f"{way}.enum[{i}]", {"const": value}
        for key, part in schema.items():
            yield from alternatives(part, f"{way}.{key}")


def values(document):
    yield document
    inner = document.values() if isinstance(document, dict) else (
        document if isinstance(document, list) else [])
    for part in inner:
        yield from values(part)


def refuse(name):
    raise ValueError(f"{name} is no JSON")


def read(text):
    return json.loads(text, parse_constant=refuse)


def run(arguments, fault):
    return subprocess.run(
        [*os.environ["ZELCTL"].split(), "--json", *arguments.split()], capture_output=True,
        text=True, check=False, env={**os.environ, "FAULT": fault,
                                     "ASAN_OPTIONS": "handle_segv=0:handle_abort=0"})


class Documents(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.schemas = schemas()
        cls.printed = [(*case, run(*case[2:])) for case in RUNS]

    def test_AreWhatThePageSays(self):
        for heading, status, arguments, fault, ended in self.printed:
            with self.subTest(arguments=arguments, fault=fault):
                document = read(ended.stdout)
                validator(self.schemas[heading]).validate(document)
                self.assertEqual(ended.returncode, status)
                if heading == "Error":
                    self.assertEqual(document["error"]["status"], status)
                    self.assertIn(f"zelctl: {document['error']['message']}\n", ended.stderr)
                if heading == "Validate":
                    self.assertEqual(document["counts"]["failed"] > 0, status == 1)

    def test_HoldAllThatThePageRequires(self):
        for heading, schema in self.schemas.items():
            check = validator(schema)
            shortest = min((ended.stdout for h, *_, ended in self.printed if h == heading), key=len)
            for way, key, lost in keys_lost(read(shortest)):
                self.assertFalse(check.is_valid(lost), (way, key))

    def test_AreAllThatThePageShows(self):
        """No branch of a schema that nothing printed is an example of."""
        self.assertEqual(set(self.schemas), {heading for heading, *_ in RUNS})
        texts = {json.dumps(value) for *_, ended in self.printed for value in values(read(ended.stdout))}
        seen = [read(text) for text in texts if len(text) < 4000]
        parts = self.schemas["Modes"]["$defs"]
        for schema in self.schemas.values():
            for way, branch in alternatives(schema):
                if branch in ({"const": "inf"}, {"const": "-inf"}):
                    continue  # as "nan"
                check = validator({**branch, "$defs": parts})
                self.assertTrue(any(check.is_valid(value) for value in seen), way)


class Report(unittest.TestCase):
    def test_IsWhatItsPageSays(self):
        with open(os.environ["REPORT_PAGE"], encoding="utf-8") as page:
            schema = json.loads(page.read().split("```json")[1].split("```")[0])
        check = jsonschema.Draft202012Validator(schema)
        check.check_schema(schema)
        ended = run("report --dimming 0.5", "")
        self.assertEqual(ended.returncode, 0)
        document = read(ended.stdout)
        check.validate(document)
        for key in schema["required"]:
            self.assertFalse(check.is_valid({k: v for k, v in document.items() if k != key}), key)


if __name__ == "__main__":
    unittest.main()
