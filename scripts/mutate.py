#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Puts each fault of tests/mutations/mutations.txt into a copy of the tree, builds
it, and says which test catches it, or the fuzzer (preset "fuzz"). Fails where one
goes unnoticed.

Usage: scripts/mutate.py [--markdown] [TITLE ...]
       scripts/mutate.py --some N
  TITLE      only the faults of these titles
  --some N   N faults of the release build, others after each commit; all others are
             looked for in their files
"""

import pathlib
import random
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
WORK = ROOT / "build" / "mutations"
FOLDERS = ["interface", "plugin", "bridge", "modes", "convert", "pcc", "handlers"]
TIMEOUT = 60
FUZZ_SECONDS = 10


def read_table():
    text = (ROOT / "tests/mutations/mutations.txt").read_text()
    for line in text.splitlines():
        if not line.strip() or line.startswith("#"):
            continue
        cells = [c.strip().replace("\\|", "|").replace("\\n", "\n")
                 for c in re.split(r"(?<!\\)\|", line)]
        title, file, old, new = cells[:4]
        for preset in (cells[4] if len(cells) > 4 else "release").split():
            yield title, file, old, new, preset


def some(count):
    """As many faults of the release build, which ones the last commit decides."""
    rows = list(read_table())
    for title, file, old, _, _ in rows:
        if old not in (ROOT / file).read_text():
            sys.exit(f"NOT FOUND: {title}: {file} no longer holds {old!r}")
    commit = subprocess.run(["git", "rev-parse", "HEAD"], cwd=ROOT, capture_output=True, text=True,
                            check=True).stdout
    return random.Random(commit).sample([row for row in rows if row[4] == "release"], count)


def copy_tree():
    names = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=ROOT,
                           capture_output=True, text=True, check=True).stdout.splitlines()
    for old in WORK.glob("tests/**/*_test.cpp"):  # found by name, so a stale one would count
        if not (ROOT / old.relative_to(WORK)).exists():
            old.unlink()
    for name in names:
        source, target = ROOT / name, WORK / name
        if not source.exists():
            continue
        if target.exists() and target.read_bytes() == source.read_bytes():
            continue
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(source, target)


def build(preset):
    if not (WORK / "build" / preset / "build.ninja").exists():
        options = ["-DZELTARN_DEVKIT=OFF", "-DZELTARN_BENCH=OFF"]
        if preset != "arm64":  # whose flags come with its compiler
            options += ["-DCMAKE_CXX_FLAGS=-w"]  # a fault may leave something unused
        if preset == "release":  # quick to build; what is shown doesn't hang on optimisation
            options += ["-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0"]
        subprocess.run(["cmake", "--preset", preset, *options], cwd=WORK, check=True,
                       capture_output=True)
    targets = [f"{folder}_test" for folder in FOLDERS]
    return subprocess.run(["cmake", "--build", f"build/{preset}", "--target", *targets],
                          cwd=WORK, capture_output=True, text=True)


def caught_by_fuzzer():
    """What the fuzzer's model or sanitizers object to; None where nothing."""
    run = subprocess.run(["scripts/fuzz.sh", str(FUZZ_SECONDS)], cwd=WORK, capture_output=True,
                         text=True)
    if run.returncode == 0:
        return None
    found = re.findall(r"not as expected: (.*)|SUMMARY: \w+: (\S+)", run.stderr)
    if not found:
        print(f"nothing found, but it failed: {run.stderr[-800:]}", flush=True)
        return None
    return f"fuzz_host_calls: {' '.join(found[0]).strip()}"


def caught_by_tests(preset):
    """The first failing test, or how the program ended; None where all pass."""
    built = build(preset)
    if built.returncode != 0:
        raise DoesNotCompile(built.stdout[-800:])
    emulator = ["qemu-aarch64", "-L", "build/arm64-sysroot"] if preset == "arm64" else []
    for folder in FOLDERS:
        program = f"build/{preset}/tests/{folder}_test"
        try:
            run = subprocess.run([*emulator, program], cwd=WORK, capture_output=True,
                                 text=True, timeout=TIMEOUT)
        except subprocess.TimeoutExpired as hung:
            output, how = (hung.stdout or b"").decode(), " (hangs)"
        else:
            if run.returncode == 0:
                continue
            output, how = run.stdout, "" if "[  FAILED  ]" in run.stdout else " (crashes)"
        failed = re.findall(r"\[  FAILED  \] (\w+\.\w+)", output)
        started = re.findall(r"\[ RUN      \] (\w+\.\w+)", output)
        return (failed[:1] or started[-1:] or [folder])[0] + how
    return None


def catch(preset):
    return caught_by_fuzzer() if preset == "fuzz" else caught_by_tests(preset)


class DoesNotCompile(Exception):
    """Then it is no fault that a test could catch."""


def main():
    if sys.argv[1:2] in (["-h"], ["--help"]):
        print(__doc__.strip())
        return 0
    markdown = "--markdown" in sys.argv
    if sys.argv[1:2] == ["--some"]:
        rows = some(int(sys.argv[2]))
    else:
        wanted = [a for a in sys.argv[1:] if not a.startswith("--")]
        rows = [row for row in read_table() if not wanted or row[0] in wanted]
    subprocess.run(["scripts/install-deps.sh", "verify"], cwd=ROOT, check=True)
    WORK.mkdir(parents=True, exist_ok=True)
    missed = 0
    sound = set()  # presets whose tests pass without a fault
    for title, file, old, new, preset in rows:
        copy_tree()
        if preset not in sound:
            if preset == "arm64":
                subprocess.run(["scripts/arm64-sysroot.sh"], cwd=WORK, check=True)
            if caught := catch(preset):
                sys.exit(f"{preset}: fails without a fault: {caught}")
            sound.add(preset)
        place = WORK / file
        source = place.read_text()
        if old not in source:
            print(f"NOT FOUND: {title}: {file} no longer holds {old!r}", flush=True)
            missed += 1
            continue
        place.write_text(source.replace(old, new, 1))
        try:
            by = catch(preset)
        except DoesNotCompile as error:
            print(f"does not compile: {error}", flush=True)
            by = None
        missed += by is None
        row = f"| `{file}` | {title} | {by or 'MISSED'} | {preset} |"
        print(row if markdown else f"{title}: {by or 'MISSED'}", flush=True)
    copy_tree()
    print(f"{missed} unnoticed")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
