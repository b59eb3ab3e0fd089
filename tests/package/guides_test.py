# SPDX-License-Identifier: Apache-2.0
"""Code in README and guides is what is compiled and run elsewhere, and links lead somewhere.

Usage: guides_test.py SOURCE_FOLDER
"""

import pathlib
import re
import sys
import textwrap
import unittest

SOURCE = pathlib.Path(sys.argv.pop())
PAGES = [SOURCE / "README.md", *sorted((SOURCE / "docs").glob("*.md"))]


def blocks_of(page):
    """(line, language, text) of each."""
    text = page.read_text()
    for block in re.finditer(r"^```(\w*)\n(.*?)^```$", text, re.M | re.S):
        yield text.count("\n", 0, block.start()) + 1, block[1], block[2]


class Guides(unittest.TestCase):
    def test_CodeIsQuoted(self):
        """Line by line, from one place of one example."""
        examples = [f.read_text().splitlines() for f in (SOURCE / "examples").rglob("*.*")]
        quotes = 0
        for page in PAGES:
            for line, language, text in blocks_of(page):
                if language not in ("cpp", "cmake"):
                    continue
                size = len(text.splitlines())
                self.assertTrue(
                    any(textwrap.dedent("\n".join(lines[i:i + size])) + "\n" == text
                        for lines in examples for i in range(len(lines))),
                    f"{page}:{line}: in no example")
                quotes += 1
        self.assertGreater(quotes, 4)

    def test_NoBlockGoesUntested(self):
        """In README and guides the others are those that a test is known to run, or no code."""
        tested = {
            "README.md": r"\$ zelctl (modes|caps|dither|assets|render)",  # zelctl_test
            "integration-guide.md": "(?!)",
            "library-guide.md": r"\$ zelctl validate",  # zelctl_test
            "panel-description.md": r"\{\n|\"transfer\": \{\n|phone\.json: (line 7: |\$\.panel\.transfer\.ramp: fitted; )",  # reference_test
        }
        for page in [page for page in PAGES if page.name in tested]:
            for line, language, text in blocks_of(page):
                if language in ("cpp", "cmake", "text"):
                    continue  # quoted, or no code
                if (page.name, language) == ("README.md", "sh"):
                    continue  # run by outside_test.py
                self.assertRegex(text, r"\A" + tested[page.name],
                                 f"{page}:{line}: which test runs it?")

    def test_LinksLeadSomewhere(self):
        """To a file, and where a heading is named, to that."""
        def anchors(page):
            headings = re.findall(r"^#+ (.*)$", page.read_text(), re.M)
            kept = (re.sub(r"[^\w\- ]", "", heading.lower()) for heading in headings)
            return {heading.replace(" ", "-") for heading in kept}

        links = 0
        for page in [*PAGES, SOURCE / "CONTRIBUTING.md", SOURCE / "CHANGELOG.md"]:
            for link in re.findall(r"\]\((?!https?:)([^)\s]+)\)", page.read_text()):
                file, _, heading = link.partition("#")
                target = page.parent / file if file else page
                self.assertTrue(target.exists(), f"{page}: {link}")
                if heading:
                    self.assertIn(heading, anchors(target), f"{page}: {link}")
                links += 1
        self.assertGreater(links, 30)


if __name__ == "__main__":
    unittest.main()
