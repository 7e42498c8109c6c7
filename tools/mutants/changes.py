"""The changes that can be made to a source, one at a time."""

import hashlib
import re
from dataclasses import dataclass
from pathlib import Path
from typing import Iterator

from lexer import Token, closing, first_values, skipped_indices, table_indices, tokens_of

# Significant digits that a change of a number still reaches. Coordinates show twelve; what a formula is
# computed with is known by fewer.
CELL_DIGITS = 12
CONSTANT_DIGITS = 10

_SWAPS = {
    "comparison": {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="},
    "order": {"<": ">=", "<=": ">", ">": "<=", ">=": "<"},
    "logic": {"&&": "||", "||": "&&"},
    "arithmetic": {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*"},
    "assignment": {"+=": "-=", "-=": "+=", "*=": "/=", "/=": "*="},
    "step": {"++": "--", "--": "++"},
    "truth": {"true": "false", "false": "true"},
}
_CONVERSION = re.compile(r"%[-+ #0]*[0-9*]*(?:\.[0-9*]*)?(?:hh|h|ll|l|L|z)?[a-zA-Z%]")
_OPERAND_END = ("number", "name", "string", "char", "raw")
_NO_OPERAND = ("return", "case", "throw", "else", "co_return")


@dataclass(frozen=True)
class Change:
    """
    One change of a file: `text` takes the place of what stands from `start` to `end`. Its line or lines read
    `before` and `after`, and stand below the line `below`.
    """

    file: str
    kind: str
    cell: bool
    line: int
    start: int
    end: int
    text: str
    below: str
    before: str
    after: str

    @property
    def identity(self) -> str:
        """Tells it from every other change, also when lines come or go elsewhere."""
        return f"{self.file}\n{self.below}\n{self.before}\n{self.after}"

    def apply(self, source: str) -> str:
        """The changed source."""
        return source[: self.start] + self.text + source[self.end :]

    def describe(self) -> str:
        """The change in two lines."""
        cell = ", table cell" if self.cell else ""
        return f"{self.file}:{self.line} ({self.kind}{cell})\n    - {self.before}\n    + {self.after}"


def changes_of(root: Path, file: str) -> list[Change]:
    """All changes of a file, in its order; those that leave the same text behind once."""
    source = (root / file).read_text(encoding="utf-8")
    tokens = tokens_of(source)
    skipped = skipped_indices(tokens) | first_values(tokens)
    cells = table_indices(tokens, file.endswith(".h"))
    names = _names_by_scope(tokens)
    found: dict[str, Change] = {}
    for index, token in enumerate(tokens):
        if index in skipped:
            continue
        for kind, start, end, text in _at(source, tokens, index, index in cells, names):
            is_cell = index in cells or kind == "text"
            change = _change(source, file, kind, is_cell, start, end, text)
            if change.before != change.after:
                found.setdefault(change.identity, change)
    return list(found.values())


def _change(source: str, file: str, kind: str, cell: bool, start: int, end: int, text: str) -> Change:
    first = source.rfind("\n", 0, start) + 1
    last = source.find("\n", end)
    last = len(source) if last < 0 else last
    before = " ".join(source[first:last].split())
    after = " ".join((source[first:start] + text + source[end:last]).split())
    below = next(
        (" ".join(line.split()) for line in reversed(source[:first].splitlines()) if line.strip()), ""
    )
    return Change(
        file, kind, cell, source.count("\n", 0, start) + 1, start, end, text, below, before, after
    )


_Edit = tuple[str, int, int, str]


def _at(
    source: str, tokens: list[Token], index: int, in_table: bool, names: dict[str, list[str]]
) -> Iterator[_Edit]:
    """The changes that begin at one token."""
    token = tokens[index]
    if token.kind == "number":
        yield from _number(tokens, index, in_table)
    elif token.kind in ("string", "raw"):
        yield "text", token.start, token.end, _other_string(token.text)
    elif token.kind == "char":
        yield "letter", token.start, token.end, _other_letter(token.text)
    elif token.kind == "name":
        yield from _name(source, tokens, index, in_table, names)
    elif token.kind == "sign":
        yield from _sign(tokens, index)


def _number(tokens: list[Token], index: int, in_table: bool) -> Iterator[_Edit]:
    token = tokens[index]
    previous = tokens[index - 1].text if index else ""
    following = tokens[index + 1].text
    if previous == "[" and following == "]" and tokens[index + 2].text in (";", "=", "["):
        return  # the size of an array, as in the next line
    if previous in (",", "<") and following == ">" and tokens[index + 1].start == token.end:
        return
    if previous == "=" and token.text == "0" and following == ";" and _ends_a_function(tokens, index - 1):
        return
    digits = CELL_DIGITS if in_table else CONSTANT_DIGITS
    yield "number", token.start, token.end, _other_number(token.text, digits)
    can_be_negative = previous in ("(", ",", "{", "=", "return", "*", "/", "?", ":") and following != "]"
    if can_be_negative and re.search(r"[1-9]", token.text):
        yield "sign", token.start, token.end, f"-{token.text}"


def _ends_a_function(tokens: list[Token], equals: int) -> bool:
    """Whether `= 0` makes a function abstract."""
    return tokens[equals - 1].text in (")", "const", "noexcept", "override")


def _other_number(text: str, most_digits: int) -> str:
    """Changes the last digit, or the last of so many significant ones."""
    if re.fullmatch(r"0[xX].*", text):
        digit = next(
            place for place in range(len(text) - 1, 1, -1) if text[place].lower() in "0123456789abcdef"
        )
        return text[:digit] + ("1" if text[digit] == "0" else "0") + text[digit + 1 :]
    mantissa = re.match(r"[\d'.]+", text)
    assert mantissa is not None
    places = [place for place, letter in enumerate(mantissa.group()) if letter.isdigit()]
    significant = [place for place in places if mantissa.group()[: place + 1].strip("0.'")] or places[-1:]
    place = significant[:most_digits][-1]
    if "." not in mantissa.group() and len(places) == 1 and text[place] == "9":
        return "10" + text[place + 1 :]
    return text[:place] + str((int(text[place]) + 1) % 10) + text[place + 1 :]


def _place_by(text: str, count: int) -> int:
    """One of so many places, the same one in every run."""
    return int.from_bytes(hashlib.sha256(text.encode()).digest()[:4], "big") % count


def _other_string(text: str) -> str:
    """
    Changes one character between the quotes, outside of conversions such as %lg: with those the outcome would
    be undefined. A text without another letter or digit gets one more.
    """
    first = text.index("(") + 1 if text.startswith("R") else text.index('"') + 1
    last = text.rindex(")") if text.startswith("R") else len(text) - 1
    fixed = {place for match in _CONVERSION.finditer(text) for place in range(*match.span())}
    plain = [place for place in range(first, last) if text[place].isalnum() and text[place].isascii()]
    plain = [place for place in plain if place not in fixed and text[place - 1] != "\\"]
    if not plain:
        return text[:first] + "x" + text[first:]
    place = plain[_place_by(text, len(plain))]
    return text[:place] + _next_letter(text[place]) + text[place + 1 :]


def _next_letter(letter: str) -> str:
    if letter.isdigit():
        return str((int(letter) + 1) % 10)
    if letter in "zZ":
        return "a" if letter == "z" else "A"
    return chr(ord(letter) + 1)


def _other_letter(text: str) -> str:
    inner = text[1:-1]
    return f"'{_next_letter(inner)}'" if inner.isalnum() else "'x'"


def _name(
    source: str, tokens: list[Token], index: int, in_table: bool, names: dict[str, list[str]]
) -> Iterator[_Edit]:
    token = tokens[index]
    if token.text in _SWAPS["truth"]:
        yield "truth", token.start, token.end, _SWAPS["truth"][token.text]
    elif token.text in ("if", "while") and tokens[index + 1].text == "(":
        start, end = tokens[index + 1].start, tokens[closing(tokens, index + 1)].end
        yield "condition", start, end, f"(!{source[start:end]})"
    elif token.text == "return" and not _returns_little(tokens, index):
        end = index + 1
        while end < len(tokens) and tokens[end].text != ";":
            end = closing(tokens, end) + 1 if tokens[end].text in "([{" else end + 1
        if end < len(tokens):
            yield "return", tokens[index + 1].start, tokens[end].start, "{}"
    elif in_table and index >= 2 and tokens[index - 1].text == "::":
        family = names.get(tokens[index - 2].text, [])
        if len(family) > 1:
            other = family[(family.index(token.text) + 1) % len(family)]
            yield "cell", token.start, token.end, other


def _returns_little(tokens: list[Token], index: int) -> bool:
    """Whether what is returned is nothing, or what `{}` or another change of this token gives as well."""
    value, following = tokens[index + 1].text, tokens[index + 2].text
    return value in (";", "{") or (
        following == ";" and value in ("true", "false", "nullptr", "0", "0.0", "this")
    )


def _names_by_scope(tokens: list[Token]) -> dict[str, list[str]]:
    """The names that the file uses behind each `Scope::`, for cells that hold a name."""
    found: dict[str, list[str]] = {}
    for scope, colons, name in zip(tokens, tokens[1:], tokens[2:]):
        if scope.kind == "name" and colons.text == "::" and name.kind == "name":
            family = found.setdefault(scope.text, [])
            if name.text not in family:
                family.append(name.text)
    return found


def _sign(tokens: list[Token], index: int) -> Iterator[_Edit]:
    token = tokens[index]
    if index == 0 or index + 1 == len(tokens):
        return
    previous, following = tokens[index - 1], tokens[index + 1]
    has_left = (previous.kind in _OPERAND_END and previous.text not in _NO_OPERAND) or previous.text in (
        ")",
        "]",
    )
    stands_free = previous.end < token.start and token.end < following.start
    if has_left and stands_free:
        for kind in ("comparison", "order", "logic", "arithmetic", "assignment"):
            if token.text in _SWAPS[kind]:
                yield kind, token.start, token.end, _SWAPS[kind][token.text]
    elif token.text in _SWAPS["step"]:
        yield "step", token.start, token.end, _SWAPS["step"][token.text]
    elif token.text == "-" and not has_left:
        yield "sign", token.start, token.end, " "
    elif token.text == "!" and following.text != "=":
        yield "logic", token.start, token.end, " "
