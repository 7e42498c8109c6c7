"""Checks the machinery: changes that must be found, and one that can't be since it changes nothing."""

import shutil
from pathlib import Path

from changes import Change
from library import Library
from rebuilt import RebuiltTests
from suites import Suites
from trial import Trial

# A line, what of it is changed, and to what.
_MUST_BE_KILLED = [
    ("core/primitives/GOST51794.cpp", "6378245.0, // gdPulkovo42", "6378245.0", "6378246.0"),
    ("core/projections/Mercator.cpp", "return", "return", "throw 1; return"),
    ("shell/refsystems/DescriptionTags.h", "int Ellipsoid = 1103;", "1103", "1193"),
    ("frame/NumberText.cpp", "return", "return", "for (;;) {} return"),
]
_NOTHING = (
    "core/projections/NZMG.cpp",
    "namespace KvRefSystem {",
    "namespace",
    "namespace /* as it was */",
)


def _change(root: Path, file: str, line: str, before: str, after: str) -> Change:
    source = (root / file).read_text(encoding="utf-8")
    if line not in source:
        raise SystemExit(
            f"mutants: {file} has no {line!r} for the check of the machinery; name another line"
        )
    start = source.index(line) + line.index(before)
    number = source.count("\n", 0, start) + 1
    return Change(file, "check", False, number, start, start + len(before), after, "", before, after)


def self_check(root: Path, library: Library, suites: Suites, rebuilt: RebuiltTests, scratch: Path) -> bool:
    """Prints a line for each check. @return whether all came out as they must."""
    trial = Trial(library, suites, rebuilt, scratch / "check", near=True)
    good = True
    for row in _MUST_BE_KILLED:
        change = _change(root, *row)
        outcome = trial.run(change, None)
        good = good and outcome.result == "killed"
        print(
            f"{change.file}:{change.line}: must be killed: {outcome.result}, {outcome.how} in {outcome.test}"
        )
    nothing = _change(root, *_NOTHING)
    objects = library.compile(nothing, library.users(nothing.file), scratch / "check")
    good = good and objects == []
    print(f"{nothing.file}: must give the same object: {'it does' if objects == [] else 'it differs'}")
    folder = scratch / "check" / "library"
    shutil.rmtree(folder, ignore_errors=True)
    library.link([], folder)
    for step in suites.steps(nothing.file):
        if not step.far:
            verdict = suites.run(step, folder, scratch / "check")
            good = good and verdict.test is None
            print(
                f"without a change, {step}: {verdict.how}{'' if verdict.test is None else ' ' + verdict.test}"
            )
    print("mutants: " + ("the machinery works" if good else "the machinery doesn't work"))
    return good
