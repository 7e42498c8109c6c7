"""Draws the changes that are tried: the same ones for the same seed."""

import hashlib
import math
import random
from dataclasses import dataclass
from pathlib import Path

from changes import Change, changes_of

ROOMS = ("frame", "core", "shell")
CELL_SHARE = 0.4  # of the sample; wrong cells are the errors that reading finds last
LEAST_OF_A_FILE = 2
TRIES_FOR_ONE = 6  # how many changes that don't count may be replaced, for each that does


@dataclass
class Draw:
    """Changes of one file and class, in the order in which they are tried, and how many are wanted."""

    file: str
    cells: bool
    changes: list[Change]
    wanted: int = 0

    @property
    def most_tries(self) -> int:
        """After so many the file is left with fewer than wanted."""
        return self.wanted * TRIES_FOR_ONE + TRIES_FOR_ONE


def source_files(root: Path) -> list[str]:
    """All sources and headers of the library."""
    found = [path for room in ROOMS for path in (root / room).rglob("*") if path.suffix in (".cpp", ".h")]
    return sorted(str(path.relative_to(root)) for path in found)


def draw(root: Path, files: list[str], seed: int, count: int | None) -> list[Draw]:
    """The draws of the files; all of their changes when no count is given."""
    draws = []
    for file in files:
        changes = changes_of(root, file)
        for cells in (False, True):
            mine = [change for change in changes if change.cell == cells]
            if mine:
                draws.append(Draw(file, cells, _mixed(mine, seed)))
    if count is None:
        for one in draws:
            one.wanted = len(one.changes)
    else:
        _share(draws, count)
    random.Random(seed).shuffle(draws)
    return [one for one in draws if one.wanted > 0]


def _mixed(changes: list[Change], seed: int) -> list[Change]:
    """
    In an order that chance gave, each kind of change in turn. A change that comes or goes leaves the order of
    the others.
    """

    def chance(text: str) -> str:
        return hashlib.sha256(f"{seed} {text}".encode()).hexdigest()

    kinds: dict[str, list[Change]] = {}
    for change in sorted(changes, key=lambda one: chance(one.identity)):
        kinds.setdefault(change.kind, []).append(change)
    order = sorted(kinds, key=lambda kind: chance(changes[0].file + kind))
    longest = max(len(group) for group in kinds.values())
    return [kinds[kind][turn] for turn in range(longest) for kind in order if turn < len(kinds[kind])]


def _share(draws: list[Draw], count: int) -> None:
    """The least of every file first, the rest by size; the square root lets small files have their part."""
    both = {one.file for one in draws if one.cells} & {one.file for one in draws if not one.cells}
    for one in draws:
        least = LEAST_OF_A_FILE // 2 if one.file in both else LEAST_OF_A_FILE
        one.wanted = min(least, len(one.changes))
    for cells, part in ((True, CELL_SHARE), (False, 1 - CELL_SHARE)):
        mine = [one for one in draws if one.cells == cells]
        left = round(count * part) - sum(one.wanted for one in mine)
        weight = sum(math.sqrt(len(one.changes)) for one in mine)
        if left > 0 and weight > 0:
            for one in mine:
                more = math.ceil(left * math.sqrt(len(one.changes)) / weight - 0.5)
                one.wanted = min(one.wanted + more, len(one.changes))
