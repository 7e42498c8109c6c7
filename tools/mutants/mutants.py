#!/usr/bin/env python3
"""
Changes one thing of the library at a time and asks the tests whether they notice.

    tools/mutants/mutants.py [--count N] [--seed N] [--only FILE] [--near] [--list] [--rerun-survivors]
    tools/mutants/mutants.py --self-check

A change is a number, a sign, an operator, a condition, a returned value, a text or the cell of a table, in
core/, shell/ or frame/. It is made in a copy under the build folder; the tests are those of a complete
release build. A run may be stopped and started again: it goes on where it was.
"""

import argparse
import sys
import tempfile
import threading
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

sys.dont_write_bytecode = True

# pylint: disable=wrong-import-position
from journal import Journal, Outcome, hash_of
from library import Library
from rebuilt import RebuiltTests
from report import Result, report
from sample import Draw, draw, source_files
from selfcheck import self_check
from suites import EXECUTABLES, Suites
from trial import Trial
from unchanging import Unchanging

ROOT = Path(__file__).resolve().parents[2]
DEFAULT_COUNT = 520
DEFAULT_SEED = 1


class Run:
    """A run over the sample."""

    def __init__(
        self,
        options: argparse.Namespace,
        library: Library,
        suites: Suites,
        rebuilt: RebuiltTests,
        scratch: Path,
    ):
        self.options = options
        self.library = library
        self.suites = suites
        self.rebuilt = rebuilt
        self.scratch = scratch
        self.listed = Unchanging(Path(__file__).with_name("unchanging.txt"))
        self.results: list[Result] = []
        self.dropped = 0
        self._lock = threading.Lock()
        self._free: list[Trial] = []
        sources = [
            path for room in ("core", "shell", "frame", "hostkit") for path in (ROOT / room).rglob("*")
        ]
        state = [path.read_bytes() for path in sorted(sources) if path.suffix in (".cpp", ".h")]
        executables = {one.name: hash_of((suites.copies / one.name).read_bytes()) for one in EXECUTABLES}
        self.journal = Journal(library.build / "journal.jsonl", ROOT, hash_of(*state), executables)

    def all(self, draws: list[Draw]) -> None:
        """Tries what is drawn, with several workers."""
        for number in range(self.options.workers):
            folder = self.scratch / str(number)
            trial = Trial(self.library, self.suites, self.rebuilt, folder, self.options.near)
            self._free.append(trial)
        with ThreadPoolExecutor(self.options.workers) as pool:
            pending = [pool.submit(self._draw, one) for one in draws]
            try:
                for future in pending:
                    future.result()
            except BaseException:
                for future in pending:
                    future.cancel()
                raise

    def _draw(self, one: Draw) -> None:
        with self._lock:
            trial = self._free.pop()
        try:
            counted = 0
            for change in one.changes[: one.most_tries]:
                if counted == one.wanted:
                    break
                outcome = self._outcome(trial, change)
                if outcome and outcome.result in ("killed", "survived"):
                    counted += 1
                    self.results.append(Result(change, outcome))
                else:
                    self.dropped += 1
        finally:
            with self._lock:
                self._free.append(trial)

    def _outcome(self, trial: Trial, change) -> Outcome | None:
        known = self.journal.find(change, self.options.near)
        last = self.journal.last(change)
        if self.options.rerun_survivors:
            if not last or last.result != "survived":
                return last
            known = None
        if known:
            return known
        outcome = trial.run(change, last)
        self.journal.add(change, outcome)
        if outcome.result == "killed":
            print(
                f"killed    {change.file}:{change.line} {change.kind}: {outcome.how} in {outcome.test}",
                flush=True,
            )
        elif outcome.result == "survived":
            note = " (listed)" if self.listed.find(change) else ""
            print(f"SURVIVED{note}  {change.describe()}", flush=True)
        return outcome


def parse(arguments: list[str]) -> argparse.Namespace:
    """The command line."""
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument(
        "--count", type=int, help=f"size of the sample (default {DEFAULT_COUNT}; of --only: all)"
    )
    parser.add_argument(
        "--seed", type=int, default=DEFAULT_SEED, help="another number draws another sample"
    )
    parser.add_argument(
        "--only", action="append", metavar="FILE", help="changes of this file; may be repeated"
    )
    parser.add_argument(
        "--near", action="store_true", help="leave out the executables that take long: for a first look"
    )
    parser.add_argument("--list", action="store_true", help="print the sample, try nothing")
    parser.add_argument(
        "--rerun-survivors", action="store_true", help="try again what no test found the last time"
    )
    parser.add_argument("--self-check", action="store_true", help="check the machinery and end")
    parser.add_argument("--workers", type=int, default=2, help="how many changes are tried at a time")
    parser.add_argument(
        "--build", type=Path, default=ROOT / "build/mutants", help="folder that this program builds in"
    )
    parser.add_argument(
        "--tests", type=Path, default=ROOT / "build/release/tests", help="folder of built tests"
    )
    return parser.parse_args(arguments)


def main(arguments: list[str]) -> int:
    """Runs it. @return the exit code."""
    options = parse(arguments)
    files = options.only or source_files(ROOT)
    count = options.count if options.count or options.only else DEFAULT_COUNT
    draws = draw(ROOT, files, options.seed, count)
    if options.list:
        for one in draws:
            for change in one.changes[: one.wanted]:
                print(change.describe())
        print(
            f"mutants: {sum(one.wanted for one in draws)} changes of {len({one.file for one in draws})} files"
        )
        return 0
    library = Library(ROOT, options.build.resolve())
    library.prepare(options.workers)
    suites = Suites(ROOT, options.tests.resolve(), library.build / "tests")
    suites.prepare()
    rebuilt = RebuiltTests(ROOT, suites.tests)
    rebuilt.prepare()
    # Of this process alone: another run may be under way.
    with tempfile.TemporaryDirectory(prefix="scratch-", dir=library.build) as folder:
        scratch = Path(folder)
        if options.self_check:
            return 0 if self_check(ROOT, library, suites, rebuilt, scratch) else 1
        run = Run(options, library, suites, rebuilt, scratch)
        run.all(draws)
    good = report(run.results, run.listed, ROOT, run.dropped)
    for executable, test in sorted(suites.left_out):
        print(
            f"mutants: {executable} {test} fails without a change and was left out; build and mend it first"
        )
    return 0 if good and not suites.left_out else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
