"""The list of changes that nobody can observe, each with its reason: unchanging.txt."""

from dataclasses import dataclass
from pathlib import Path

from changes import Change, changes_of

_FIELDS = ("file", "below", "before", "after", "reason")


@dataclass(frozen=True)
class Entry:
    """A change by its file, the line above it, and its own line before and after it."""

    file: str
    below: str
    before: str
    after: str
    reason: str

    @property
    def identity(self) -> str:
        """As that of the change."""
        return f"{self.file}\n{self.below}\n{self.before}\n{self.after}"


class Unchanging:
    """The entries, found by their change."""

    def __init__(self, path: Path):
        self.entries: dict[str, Entry] = {}
        for number, block in enumerate(_blocks(path), 1):
            fields = dict(line.split(": ", 1) for line in block if ": " in line)
            if tuple(fields) != _FIELDS or not all(fields.values()):
                raise SystemExit(
                    f"mutants: {path}: entry {number} needs these lines in this order: {_FIELDS}"
                )
            entry = Entry(**fields)
            self.entries[entry.identity] = entry

    def find(self, change: Change) -> Entry | None:
        """The entry of a change."""
        return self.entries.get(change.identity)

    def without_change(self, root: Path) -> list[Entry]:
        """The entries that are no change of their file any more."""
        files = {entry.file for entry in self.entries.values() if (root / entry.file).exists()}
        possible = {change.identity for file in files for change in changes_of(root, file)}
        return [entry for identity, entry in self.entries.items() if identity not in possible]


def _blocks(path: Path) -> list[list[str]]:
    blocks: list[list[str]] = [[]]
    text = path.read_text(encoding="utf-8") if path.exists() else ""
    for line in text.splitlines():
        if not line.strip():
            blocks.append([])
        elif not line.startswith("#"):
            blocks[-1].append(line.strip())
    return [block for block in blocks if block]
