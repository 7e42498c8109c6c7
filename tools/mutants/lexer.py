"""Takes C++ source apart into tokens, as far as changing one of them needs it."""

import re
from dataclasses import dataclass

_PIECES = [
    ("comment", r"//(?:[^\n\\]|\\.|\\\n)*|/\*.*?\*/"),
    ("line", r"^[ \t]*\#(?:[^\n\\]|\\.|\\\n)*"),
    ("raw", r'R"(?P<delimiter>[^()\\ ]{0,16})\(.*?\)(?P=delimiter)"'),
    ("string", r'"(?:[^"\\\n]|\\.)*"'),
    ("char", r"'(?:[^'\\\n]|\\.)+'"),
    ("number", r"(?:0[xX][0-9a-fA-F']+|(?:\d[\d']*\.?\d*|\.\d+)(?:[eE][+-]?\d+)?)[a-zA-Z]*"),
    ("name", r"[A-Za-z_]\w*"),
    ("sign", r"<=>|->\*|<<=|>>=|\.\.\.|::|->|\+\+|--|<<|&&|\|\||[<>=!+\-*/%&|^]=|[^\s\w]"),
]
_OF_THE_COMPILER = (
    "static_assert",
    "requires",
    "noexcept",
    "decltype",
    "sizeof",
    "alignof",
    "__attribute__",
)
_TOKEN = re.compile(
    "|".join(f"(?P<{kind}>{pattern})" for kind, pattern in _PIECES), re.DOTALL | re.MULTILINE
)


@dataclass(frozen=True)
class Token:
    """A token and where it stands in the text."""

    kind: str
    text: str
    start: int

    @property
    def end(self) -> int:
        """The place behind the last character."""
        return self.start + len(self.text)


def tokens_of(source: str) -> list[Token]:
    """The tokens of a source, without comments and preprocessor lines."""
    found = []
    for match in _TOKEN.finditer(source):
        if match.lastgroup not in ("comment", "line"):
            kind = "raw" if match.group("raw") else match.lastgroup
            found.append(Token(kind, match.group(), match.start()))
    return found


def closing(tokens: list[Token], opening: int) -> int:
    """The index of the bracket that closes the one at `opening`; the last index when none does."""
    depth = 0
    for index in range(opening, len(tokens)):
        if tokens[index].kind == "sign":
            if tokens[index].text in "([{":
                depth += 1
            elif tokens[index].text in ")]}":
                depth -= 1
                if depth == 0:
                    return index
    return len(tokens) - 1


def skipped_indices(tokens: list[Token]) -> set[int]:
    """Tokens that aren't code of the running program: compile-time assertions, attributes, linkage names."""
    skipped: set[int] = set()
    for index, token in enumerate(tokens[:-1]):
        following = tokens[index + 1].text
        if token.text in _OF_THE_COMPILER and following == "(":
            skipped.update(range(index, closing(tokens, index + 1) + 1))
        elif token.text == "[" and following == "[":
            skipped.update(range(index, closing(tokens, index) + 1))
        elif token.text == "extern" and tokens[index + 1].kind == "string":
            skipped.add(index + 1)
        elif token.text == "operator":
            skipped.update((index, index + 1))
    return skipped


def first_values(tokens: list[Token]) -> set[int]:
    """
    Tokens of the values that private and protected members begin with. A constructor sets them before
    anything reads them: a member of an object that is only there to be destroyed keeps its first value, and
    nobody sees it.
    """
    found: set[int] = set()
    scopes: list[str] = []
    coming = ""
    statement: list[str] = []
    for index, token in enumerate(tokens):
        text = token.text
        if text in ("class", "struct") and tokens[index - 1].text not in ("<", ",", "enum"):
            coming = "private" if text == "class" else "public"
        elif text in ("private", "protected", "public") and tokens[index + 1].text == ":":
            scopes[-1] = text
        if text == "{":
            scopes.append(coming)
            coming = ""
        elif text == "}" and scopes:
            scopes.pop()
        elif (
            text == "="
            and scopes
            and scopes[-1] in ("private", "protected")
            and not {"static", "(", "="} & set(statement)
        ):
            end = index
            while end < len(tokens) and tokens[end].text != ";":
                end += 1
            found.update(range(index, end))
        if text in (";", "{", "}", ":"):
            coming = "" if text == ";" else coming
            statement = []
        else:
            statement.append(text)
    return found


def table_indices(tokens: list[Token], is_header: bool) -> set[int]:
    """
    Tokens of tables: the braces that a constexpr or static const name is set to, the enumerators, and in a
    header also a constant of its own, since a header's constants are the keys, tags and codes of others.
    """
    cells: set[int] = set()
    index = 0
    while index < len(tokens):
        text = tokens[index].text
        if text == "enum":
            opening = index
            while opening < len(tokens) and tokens[opening].text not in "{;":
                opening += 1
            if opening < len(tokens) and tokens[opening].text == "{":
                cells.update(range(opening, closing(tokens, opening)))
                index = opening
        elif text == "constexpr":
            start = _value_of(tokens, index)
            if start is not None and tokens[start].text == "{":
                end = closing(tokens, start)
                cells.update(range(start, end))
                index = end
            elif start is not None and is_header:
                end = start
                while end < len(tokens) and tokens[end].text != ";":
                    end += 1
                cells.update(range(start, end))
                index = end
        index += 1
    return cells


def _value_of(tokens: list[Token], constexpr: int) -> int | None:
    """The index behind the `=` of a constexpr declaration; None for a function."""
    index = constexpr + 1
    while index < len(tokens) and tokens[index].text not in "=;({":
        if tokens[index].text == "[":
            index = closing(tokens, index)
        index += 1
    if index + 1 < len(tokens) and tokens[index].text == "=":
        return index + 1
    return index if index < len(tokens) and tokens[index].text == "{" else None
