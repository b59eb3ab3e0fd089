#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Makes simple faults in sources of the plug-in, one by one, in a copy of the tree: another
comparison, a statement dropped, another constant, another result. Prints those that no
test of the release build catches. Fails where one is not in
tests/mutations/survivors.txt, which says why nothing outside can tell.

Usage: scripts/mutate-simply.py FILE ...
"""

import collections
import importlib
import re
import sys

mutate = importlib.import_module("mutate")
SURVIVORS = mutate.ROOT / "tests/mutations/survivors.txt"

SWAPS = [(r"==", "!="), (r"!=", "=="), (r"(?<=\s)<(?=\s)", "<="), (r"(?<=\s)<=(?=\s)", "<"),
         (r"(?<=\s)>(?=\s)", ">="), (r"(?<=\s)>=(?=\s)", ">"), (r"&&(?=\s)", "||"),
         (r"\|\|", "&&"), (r"\btrue\b", "false"), (r"\bfalse\b", "true"),
         (r"\breturn kErr\w+;", "return kOk;"), (r"\breturn kOk;", "return kErrInvalid;"),
         (r"(?<![\w.])(\d+)(?![\w.xX])", None)]
# A call or an assignment in one line; a declaration or a return can't be dropped.
STATEMENT = re.compile(r"^\s+(?:if \(.*\) )?(?!return|using|const|auto|static|case)"
                       r"[\w.>\-\[\]*:]+(?:\(.*\)| [-+*/|&]?= .*);$")


def is_code(line):
    text = line.strip()
    return text and not text.startswith(("//", "#", "ZEL_PIN", "static_assert", "ZEL_LOG"))


def faults(source):
    """(what, changed source) of each."""
    lines = source.splitlines(keepends=True)
    for number, line in enumerate(lines):
        if not is_code(line):
            continue
        changed = []
        code = line.split("//")[0]
        for pattern, other in SWAPS:
            for found in re.finditer(pattern, code):
                new = other if other is not None else str(int(found[1]) + 1)
                changed.append(line[:found.start()] + new + line[found.end():])
        if STATEMENT.match(code.rstrip()):
            changed.append("\n")
        for new in changed:
            what = f"{line.strip()} -> {new.strip() or 'nothing'}"
            yield what, "".join([*lines[:number], new, *lines[number + 1:]])


def known():
    """How often each fault may survive, for nothing outside can tell."""
    rows = [line.split(" | ") for line in SURVIVORS.read_text().splitlines()
            if line and not line.startswith("#")]
    return collections.Counter((row[0], row[1]) for row in rows)


def main():
    if not sys.argv[1:] or sys.argv[1] in ("-h", "--help"):
        print(__doc__.strip())
        return 0
    mutate.WORK.mkdir(parents=True, exist_ok=True)
    mutate.copy_tree()
    if caught := mutate.catch("release"):
        sys.exit(f"fails without a fault: {caught}")
    made = survived = new = 0
    expected = known()
    for file in sys.argv[1:]:
        place = mutate.WORK / file
        source = place.read_text()
        for what, changed in faults(source):
            place.write_text(changed)
            try:
                by = mutate.catch("release")
            except mutate.DoesNotCompile:
                continue
            made += 1
            if by is None:
                survived += 1
                is_new = expected[file, what] == 0
                expected[file, what] -= not is_new
                new += is_new
                print(f"{'NEW' if is_new else 'known'}: {file} | {what}", flush=True)
        place.write_text(source)
    print(f"{made} faults, {survived} survive, {new} of them not listed")
    return 1 if new else 0


if __name__ == "__main__":
    sys.exit(main())
