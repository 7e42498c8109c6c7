"""Tells how the changes fared, and whether that is good enough."""

import os
from dataclasses import dataclass
from pathlib import Path

from changes import Change
from journal import Outcome
from unchanging import Entry, Unchanging

LEAST_KILLED = 97.0  # per cent of all that count


@dataclass(frozen=True)
class Result:
    """A change that counts, and what became of it."""

    change: Change
    outcome: Outcome

    @property
    def killed(self) -> bool:
        """Whether a test found it."""
        return self.outcome.result == "killed"


def report(results: list[Result], listed: Unchanging, root: Path, dropped: int) -> bool:
    """Prints tables and lists. @return whether all is well."""
    survivors = [one for one in results if not one.killed]
    unlisted = [one for one in survivors if not listed.find(one.change)]
    known = [one for one in survivors if listed.find(one.change)]
    found = [one for one in results if one.killed and listed.find(one.change)]
    _print_known(known, listed)
    killed = [entry for one in found if (entry := listed.find(one.change))]
    _print_stale(listed.without_change(root), killed)
    _print_survivors(unlisted)
    _print_table(results)
    print(f"not counted: {dropped} changes that don't compile or that leave the objects as they are")
    return _judge(results, unlisted)


def _print_known(known: list[Result], listed: Unchanging) -> None:
    if known:
        print(f"\n{len(known)} changes that nobody can observe (unchanging.txt):")
    for one in sorted(known, key=lambda result: (result.change.file, result.change.line)):
        entry = listed.find(one.change)
        print(f"  {one.change.describe()}\n    : {entry.reason if entry else ''}")


def _print_stale(gone: list[Entry], killed: list[Entry]) -> None:
    for entry in gone:
        print(f"unchanging.txt: no longer a change of {entry.file}, take the entry out: {entry.after}")
    for entry in killed:
        print(
            f"unchanging.txt: a test does find the change, take the entry out: {entry.file}: {entry.after}"
        )


def _print_survivors(unlisted: list[Result]) -> None:
    if unlisted:
        print(
            f"\n{len(unlisted)} changes that no test found. For each: write a test that fails with it, or add"
        )
        print("it to tools/mutants/unchanging.txt with the reason why nobody can observe it.")
    for one in sorted(unlisted, key=lambda result: (result.change.file, result.change.line)):
        print(f"  {one.change.describe()}")


def _row(name: str, results: list[Result]) -> str:
    killed = sum(one.killed for one in results)
    per_cent = 100 * killed / len(results) if results else 100.0
    return f"{name:<24} {len(results):>8} {killed:>8} {len(results) - killed:>10} {per_cent:>9.1f} %"


def _print_table(results: list[Result]) -> None:
    folders: dict[str, list[Result]] = {}
    for one in results:
        folders.setdefault(os.path.dirname(one.change.file), []).append(one)
    print(f"\n{'folder':<24} {'sampled':>8} {'killed':>8} {'surviving':>10} {'killed':>11}")
    for folder in sorted(folders):
        print(_row(folder, folders[folder]))
    print(_row("all", results))
    print(_row("table cells", [one for one in results if one.change.cell]))
    print(_row("code", [one for one in results if not one.change.cell]))


def _judge(results: list[Result], unlisted: list[Result]) -> bool:
    killed = sum(one.killed for one in results)
    faults = []
    if not results:
        faults.append("no change was tried")
    elif 100 * killed / len(results) < LEAST_KILLED:
        faults.append(f"less than {LEAST_KILLED:.0f} % are killed")
    cells = sum(one.change.cell for one in unlisted)
    if cells:
        faults.append(f"{cells} table cells survive")
    if unlisted:
        faults.append(f"{len(unlisted)} survivors aren't in unchanging.txt")
    print("mutants: " + ("; ".join(faults) if faults else "all is well"))
    return not faults
