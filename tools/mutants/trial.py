"""Tries one change: compiles it, links it, and asks the tests."""

import threading
from pathlib import Path

from changes import Change
from journal import Outcome
from library import FIRST_OBJECTS, OVERLAY, Library
from rebuilt import RebuiltTests
from suites import SECONDS, Step, Suites

_checked: dict[tuple[str, str], bool] = {}
_checked_lock = threading.Lock()


class Trial:
    """Works in a scratch folder of its own, on one change at a time."""

    def __init__(self, library: Library, suites: Suites, rebuilt: RebuiltTests, scratch: Path, near: bool):
        self.library = library
        self.suites = suites
        self.rebuilt = rebuilt
        self.scratch = scratch
        self.near = near
        scratch.mkdir(parents=True, exist_ok=True)

    def run(self, change: Change, last: Outcome | None) -> Outcome:
        """@param last what became of it before: the test that found it then is asked first."""
        users = self.library.users(change.file)
        if not users:
            return Outcome("same")
        folder = self.scratch / "library"
        first = self._built(change, users[:FIRST_OBJECTS], folder)
        if first:
            return first
        steps = self.suites.steps(change.file)
        near = [step for step in steps if not step.far]
        found = self._any(self._last(last) + near, folder) or self._with_tests_of_the_header(change, folder)
        if found or self.near:
            return found or Outcome("survived", near=True)
        if len(users) > FIRST_OBJECTS:
            if self._built(change, users, folder):
                return Outcome("refused")
            found = self._any(near, folder)
        return found or self._any([step for step in steps if step.far], folder) or Outcome("survived")

    def _built(self, change: Change, users: list[str], folder: Path) -> Outcome | None:
        """Builds the changed library. @return why it can't be asked, or None."""
        objects = self.library.compile(change, users, self.scratch)
        if objects == []:
            return Outcome("same")
        if objects is None or not self.library.link(objects, folder):
            return Outcome("refused")
        return None

    @staticmethod
    def _last(last: Outcome | None) -> list[Step]:
        """The test that found the change before, alone."""
        if not last or last.result != "killed" or "." not in last.test:
            return []
        return [Step(last.executable, last.test, SECONDS[last.executable], False)]

    def _any(self, steps: list[Step], folder: Path) -> Outcome | None:
        """The outcome when a test of one of the steps fails."""
        return next((found for step in steps if (found := self._asked(step, folder))), None)

    def _with_tests_of_the_header(self, change: Change, folder: Path) -> Outcome | None:
        """Asks the tests that are compiled with a changed header."""
        if self.near or not change.file.endswith(".h"):
            return None
        for name in self.suites.hosts(change.file):
            path = self.rebuilt.executable(change.file, name, self.scratch / OVERLAY, self.scratch)
            found = self._asked(Step(name, "*", SECONDS[name], False, path), folder) if path else None
            if found:
                return found
        return None

    def _asked(self, step: Step, folder: Path) -> Outcome | None:
        """The outcome when a test of the step fails for the change's sake."""
        while (verdict := self.suites.run(step, folder, self.scratch)).test is not None:
            if self._passes_unchanged(step, verdict.test):
                return Outcome("killed", verdict.test, step.executable, verdict.how)
            self.suites.leave_out(step.executable, verdict.test)
        return None

    def _passes_unchanged(self, step: Step, test: str) -> bool:
        """A test kills only what it lets pass unchanged."""
        key = (step.executable, test)
        with _checked_lock:
            known = _checked.get(key)
        if known is None:
            pattern = test if "." in test else "*"
            alone = Step(step.executable, pattern, step.seconds, step.far)
            verdict = self.suites.run(alone, self.library.unchanged, self.scratch)
            known = verdict.test is None
            if not known and pattern == "*":
                raise SystemExit(f"mutants: {step.executable} doesn't pass without a change: {verdict}")
            with _checked_lock:
                _checked[key] = known
        return known
