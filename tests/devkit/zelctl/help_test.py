# SPDX-License-Identifier: Apache-2.0
"""Help, man page and completion: each says what the others say, and every example runs.

In the environment: ZELCTL, the program; SOURCE, the tree; LIBRARY, a mode parser; VERSION.
"""

import os
import pathlib
import pty
import re
import shutil
import subprocess
import tempfile
import time
import unittest

from PIL import Image

ZELCTL = os.environ["ZELCTL"].split()
SOURCE = pathlib.Path(os.environ["SOURCE"])
MAN_PAGE = SOURCE / "devkit/zelctl/zelctl.1"


def run(arguments, **options):
    return subprocess.run([*ZELCTL, *arguments], capture_output=True, text=True, **options)


def help_of(*command):
    shown = run([*command, "--help"])
    assert shown.returncode == 0 and shown.stderr == "", shown
    return shown.stdout


def commands():
    return re.findall(r"^  ([a-z]+) ", help_of().partition("Subcommands:")[2].partition("\n\n")[0], re.M)


def options(text):
    return set(re.findall(r"^  (?:-\w,)?(--[a-z-]+)", text, re.M))


class Help(unittest.TestCase):
    def test_EveryExampleRuns(self):
        with tempfile.TemporaryDirectory() as folder:
            here = pathlib.Path(folder)
            shutil.copy(SOURCE / "devkit/pictures/sample.png", here / "in.png")
            shutil.copy(SOURCE / "devkit/panels/phone-oled.json", here / "my-panel.json")
            for name in "measured.ti3", "panel.icc":
                shutil.copy(SOURCE / "fuzz/corpus/import" / name, here)
            (here / "libmy-parser.so").symlink_to(os.environ["LIBRARY"])
            for command in [(), *((name,) for name in commands())]:
                examples = re.findall(r"^  zelctl (.*)$",
                                      help_of(*command).partition("Examples:\n")[2], re.M)
                self.assertTrue(examples, command)
                for example in examples:
                    with self.subTest(example):
                        ended = run(example.split(), cwd=here)
                        self.assertEqual(ended.returncode, 0, ended.stderr)

    def test_Version(self):
        self.assertEqual(run(["--version"]).stdout, f"zelctl {os.environ['VERSION']}\n")

    def test_ManPage(self):
        shown = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", MAN_PAGE],
                               capture_output=True, text=True, env={**os.environ, "MANWIDTH": "80"})
        self.assertEqual((shown.returncode, shown.stderr), (0, ""))
        page = MAN_PAGE.read_text().replace("\\-", "-")
        for name in commands():
            self.assertRegex(page, rf"\n\.(B|BI) {name}\b")
            for option in options(help_of(name)) | options(help_of()):
                self.assertRegex(page, rf"{option}(?![a-z-])", name)

    def test_Completion(self):
        """Of words as bash hands them over; the last is being typed."""
        cases = [
            ("zelctl rend", {"render"}),
            ("zelctl --vers", {"--version"}),
            ("zelctl render display", {"display_p3"}),
            ("zelctl render srgb --dim", {"--dimming"}),
            ("zelctl plot srgb --what p", {"pcc"}),
            ("zelctl report display_p3 --pat", {"--patches"}),
            ("zelctl validate --time", {"--timeout"}),
            ("zelctl import --targets disp", {"display_p3"}),
            ("zelctl import --targets srgb,dc", {"srgb,dcip3"}),
            ("zelctl export native --icc-version ''", {"2", "4"}),
            ("zelctl render srgb --from v", {"vivid"}),
            ("zelctl render srgb --from ''", {"native", "srgb", "display_p3", "dcip3", "bt2020_hlg",
                                              "bt2020_st2084", "vivid"}),
            (f"zelctl --panel = {SOURCE}/devkit/panels/odd.json render pap",
             {"paper", "paper_exact"}),
            ("zelctl export srgb --format = cl", {"clf"}),
            ("zelctl render srgb --stri", {"--strict"}),
        ]
        for line, expected in cases:
            words = line.replace("''", "").split(" ")
            script = (f"source {SOURCE}/devkit/zelctl/completion/zelctl; "
                      f"COMP_WORDS=({line}); COMP_CWORD={len(words) - 1}; "
                      f"_zelctl zelctl '{words[-1]}' '{words[-2]}'; printf '%s\\n' \"${{COMPREPLY[@]}}\"")
            with tempfile.TemporaryDirectory() as folder:
                program = pathlib.Path(folder) / "zelctl"
                program.write_text(f"#!/bin/sh\nexec {' '.join(ZELCTL)} \"$@\"\n")
                program.chmod(0o755)
                completed = subprocess.run(["bash", "-c", script], capture_output=True, text=True,
                                           env={**os.environ,
                                                "PATH": f"{folder}:{os.environ['PATH']}"})
            self.assertEqual(completed.stderr, "", line)
            self.assertEqual(set(completed.stdout.split()), expected, line)

    @unittest.skipIf(len(ZELCTL) > 1, "an emulator takes too long")
    def test_ProgressIsForTerminals(self):
        for size in (2400, 1500), (8000, 6000):
            took, shown = self.shown_of_a_picture(size)
            if shown:
                self.assertTrue(shown.endswith("\r\x1b[K"), shown[-40:])
            if took > 2.5:  # reading, and the first second, are silent
                self.assertRegex(shown, r"\rpicture: [0-9]+ %")
                self.assertIn("picture: writing", shown)
                return

    def shown_of_a_picture(self, size):
        """How long it took, and what the terminal got."""
        with tempfile.TemporaryDirectory() as folder:
            large = pathlib.Path(folder) / "in.png"
            Image.new("RGB", size, (200, 30, 90)).save(large)
            arguments = ["render", "display_p3", "--threads", "1", "--image", str(large), "-o",
                         f"{folder}/out.png"]
            master, terminal = pty.openpty()
            began = time.monotonic()
            ended = subprocess.run([*ZELCTL, *arguments], stdout=subprocess.DEVNULL,
                                   stderr=terminal)
            took = time.monotonic() - began
            os.close(terminal)
            try:
                shown = os.read(master, 1 << 16).decode()
            except OSError:  # nothing was written
                shown = ""
            os.close(master)
            self.assertEqual(ended.returncode, 0)
            return took, shown

    def test_Suggestions(self):
        cases = [
            ("rendr srgb --dimming 1", "no command 'rendr'; did you mean 'render'?"),
            ("frobnicate", "no command 'frobnicate'"),
            ("--pannel x", "no option '--pannel'; did you mean '--panel'?"),
            ("render srgb --diming 1", "no option '--diming'; did you mean '--dimming'?"),
            ("modes --panle=x", "no option '--panle=x'; did you mean '--panel'?"),
            ("export srgb --frmat clf -o a", "no option '--frmat'; did you mean '--format'?"),
            ("export srgb --format clff -o a",
             "--format: no format 'clff'; did you mean 'clf'? (known: clf, "),
            ("modes extra", "nothing takes 'extra'"),
            ("render sRGB", "no mode 'sRGB'; did you mean 'srgb'? (valid modes: 0 "),
            ("render srbg", "no mode 'srbg'; did you mean 'srgb'? (valid modes: 0 "),
        ]
        for arguments, line in cases:
            ended = run(arguments.split())
            self.assertEqual((ended.returncode, ended.stdout), (2, ""))
            self.assertTrue(ended.stderr.startswith("zelctl: " + line), ended.stderr)


if __name__ == "__main__":
    unittest.main()
