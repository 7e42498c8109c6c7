"""Remembers what became of each change, so that a run can be stopped and taken up again."""

import hashlib
import json
import threading
from dataclasses import asdict, dataclass
from pathlib import Path

from changes import Change


@dataclass(frozen=True)
class Outcome:
    """
    What became of a change: "killed", "survived", "same" (the objects are those of the unchanged library) or
    "refused" (by the compiler). The near tests alone decide when `near` is set.
    """

    result: str
    test: str = ""
    executable: str = ""
    how: str = ""
    near: bool = False


def hash_of(*parts: bytes | str) -> str:
    """A short digest of some texts."""
    digest = hashlib.sha256()
    for part in parts:
        data = part.encode() if isinstance(part, str) else part
        digest.update(len(data).to_bytes(8, "big") + data)
    return digest.hexdigest()[:24]


class Journal:
    """
    A file with a line for each outcome. An outcome holds while what it was found with is as it was: the
    changed source always, for a killed change the executable that killed it, for a survivor the whole
    library and all tests.
    """

    def __init__(self, path: Path, root: Path, library: str, executables: dict[str, str]):
        self.path = path
        self.root = root
        self._library = library
        self._executables = executables
        self._lock = threading.Lock()
        self._entries: dict[str, dict[str, str]] = {}
        if path.exists():
            for line in path.read_text(encoding="utf-8").splitlines():
                try:
                    entry = json.loads(line)
                    self._entries[entry["key"]] = entry
                except (ValueError, KeyError):
                    continue  # a line that was cut when the run was stopped

    def _key(self, change: Change) -> str:
        source = (self.root / change.file).read_bytes()
        return hash_of(source, change.describe())

    def _proof(self, outcome: Outcome) -> str:
        if outcome.result == "killed":
            return self._executables.get(outcome.executable, "")
        if outcome.result in ("same", "refused"):
            return ""
        return hash_of(self._library, *sorted(self._executables.values()))

    def find(self, change: Change, near: bool) -> Outcome | None:
        """The outcome of a change, if it still holds. @param near whether the near tests' word is enough."""
        entry = self._entries.get(self._key(change))
        if not entry:
            return None
        outcome = self._outcome(entry)
        if outcome.result == "survived" and outcome.near and not near:
            return None
        return outcome if entry["proof"] == self._proof(outcome) else None

    def last(self, change: Change) -> Outcome | None:
        """What was found at last, whether or not it still holds."""
        entry = self._entries.get(self._key(change))
        return self._outcome(entry) if entry else None

    @staticmethod
    def _outcome(entry: dict) -> Outcome:
        return Outcome(**{name: entry[name] for name in ("result", "test", "executable", "how", "near")})

    def add(self, change: Change, outcome: Outcome) -> None:
        """Writes an outcome down."""
        entry = {"key": self._key(change), "proof": self._proof(outcome), **asdict(outcome)}
        entry["change"] = change.describe()
        with self._lock:
            self._entries[entry["key"]] = entry
            with open(self.path, "a", encoding="utf-8") as file:
                file.write(json.dumps(entry) + "\n")
