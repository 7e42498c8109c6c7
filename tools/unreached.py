#!/usr/bin/env python3
"""Holds what the tests have reached against what is promised: unreached.py LINES.json UNREACHED.txt

LINES.json is gcovr's report. UNREACHED.txt names the lines that no test reaches and the branches that none takes, each
below its reason:

    # why these can't be reached, in one or more lines
    core/primitives/Ellipsoid.cpp: the line's text
    core/primitives/Ellipsoid.cpp? the text of a line of which a branch is never taken

A text that doesn't tell by itself where it stands, such as "return false;", follows that of the line before it.
Comments and empty lines before the first reason don't count. The program fails where a folder has less than is promised,
where a line of the rooms below isn't reached and isn't in the list, and where the list has a line that is reached.
"""

import json
import sys
from collections import Counter, defaultdict
from pathlib import Path

ROOMS = ("frame", "core", "shell")  # those for which the shares are promised
LEAST_LINES = 97.0
LEAST_BRANCHES = 90.0
SHORT = 24  # characters of a text that may stand in many places


def read_report(path: Path) -> dict[str, list[dict]]:
    return {file["file"]: file["lines"] for file in json.loads(path.read_text())["files"]}


def room_of(file: str) -> str:
    return file.split("/")[0]


def text_of(file: str, number: int, sources: dict[str, list[str]]) -> str:
    if file not in sources:
        sources[file] = Path(file).read_text().splitlines()
    text = sources[file][number - 1].strip()
    return text if len(text) > SHORT or number == 1 else f"{sources[file][number - 2].strip()} {text}"


def counted(line: dict) -> bool:
    return not line.get("gcovr/noncode") and not line.get("gcovr/excluded")


def read_reasons(path: Path) -> tuple[Counter, Counter]:
    """The listed lines, and the listed lines with a branch that isn't taken."""
    lines, branches = Counter(), Counter()
    for number, row in enumerate(path.read_text().splitlines(), 1):
        if not row.strip() or row.startswith("#"):
            continue
        for mark, listed in ((": ", lines), ("? ", branches)):
            file, found, text = row.partition(mark)
            if found and " " not in file:
                listed[(file, text.strip())] += 1
                break
        else:
            sys.exit(f"{path}:{number}: neither a file with \": \" nor one with \"? \": {row}")
    return lines, branches


def share(part: int, whole: int) -> float:
    return 100.0 * part / whole if whole else 100.0


def main() -> int:
    report = read_report(Path(sys.argv[1]))
    listed_lines, listed_branches = read_reasons(Path(sys.argv[2]))
    sources: dict[str, list[str]] = {}
    totals: dict[str, list[int]] = defaultdict(lambda: [0, 0, 0, 0])
    unreached, untaken = Counter(), Counter()
    places: dict[tuple[str, str], int] = {}
    for file, lines in sorted(report.items()):
        total = totals[room_of(file)]
        for line in filter(counted, lines):
            key = (file, text_of(file, line["line_number"], sources))
            taken = [branch["count"] > 0 for branch in line["branches"]]
            total[0] += line["count"] > 0
            total[1] += 1
            total[2] += sum(taken)
            total[3] += len(taken)
            if line["count"] == 0:
                unreached[key] += 1
            elif not all(taken):
                untaken[key] += 1
            else:
                continue
            places[key] = line["line_number"]

    problems = 0
    for key, count in sorted((unreached - listed_lines).items()):
        if room_of(key[0]) in ROOMS:
            print(f"{key[0]}:{places[key]}: not reached and not in {sys.argv[2]}: {key[1]}")
            problems += 1
    for listed, present, what in ((listed_lines, unreached, "reached"), (listed_branches, untaken, "taken whole")):
        for key in sorted((listed - present)):
            print(f"{sys.argv[2]}: {key[0]} has no such line any more, or it is {what}: {key[1]}")
            problems += 1
    if "--branches" in sys.argv:
        for key in sorted(untaken - listed_branches):
            print(f"{key[0]}:{places[key]}: a branch isn't taken: {key[1]}")

    print("\nroom      lines            branches")
    for room, (hit, lines, taken, branches) in sorted(totals.items()):
        of_lines, of_branches = share(hit, lines), share(taken, branches)
        short = room in ROOMS and (of_lines < LEAST_LINES or of_branches < LEAST_BRANCHES)
        problems += short
        print(f"{room:8} {of_lines:5.1f} % of {lines:5}  {of_branches:5.1f} % of {branches:5}"
              + (f"  LESS THAN {LEAST_LINES} % and {LEAST_BRANCHES} %" if short else ""))
    print(f"{sum(unreached.values())} lines not reached, {sum(untaken.values())} lines with a branch not taken; "
          f"{sum(listed_lines.values())} and {sum(listed_branches.values())} of them have their reason in the list"
          + (f"; {problems} problems above" if problems else ""))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
