"""
Tests that are compiled anew with a changed header: what a header holds is also part of the hosts that are
compiled with it, and the tests are such hosts.
"""

import json
import os
import re
import shlex
import subprocess
from pathlib import Path

# The nearest tests; all that see a header would take as long as the build of the tests.
MOST_TESTS = 6


class RebuiltTests:
    """Uses the objects of a finished build of the tests, and replaces some of them."""

    def __init__(self, root: Path, tests: Path):
        self.root = root
        self.build = tests.parent
        self._commands: dict[str, list[str]] = {}
        self._users: dict[str, list[str]] = {}
        self._links: dict[str, list[str]] = {}

    def prepare(self) -> None:
        """Reads how the tests were built."""
        for entry in json.loads((self.build / "compile_commands.json").read_text(encoding="utf-8")):
            command = shlex.split(entry["command"])
            output = command[command.index("-o") + 1]
            if output.startswith("tests/CMakeFiles/tests_"):
                self._commands[output] = [
                    word for word in command if word not in ("-Werror", "-Winvalid-pch")
                ]
        user = ""
        for line in self._ninja("deps").splitlines():
            if line.startswith(" "):
                used = os.path.relpath(os.path.join(self.build, line.strip()), self.root)
                self._users.setdefault(used, []).append(user)
            else:
                user = line.split(":")[0]

    def _ninja(self, *arguments: str) -> str:
        command = ["ninja", "-C", str(self.build), "-t", *arguments]
        return subprocess.run(command, capture_output=True, text=True, check=False).stdout

    def _objects(self, header: str, executable: str) -> list[str]:
        """The objects of an executable that a header is compiled into, nearest first."""
        stem = re.sub(r"(Detail|Records)?\.h$", "", os.path.basename(header))
        prefix = f"tests/CMakeFiles/{executable}.dir/"
        mine = [
            user
            for user in self._users.get(header, [])
            if user.startswith(prefix) and user in self._commands
        ]

        def distance(user: str) -> tuple[bool, bool, str]:
            folder = f"/{os.path.dirname(header)}/"
            return not os.path.basename(user).startswith(stem), folder not in user, user

        return sorted(mine, key=distance)[:MOST_TESTS]

    def executable(self, header: str, name: str, overlay: Path, scratch: Path) -> Path | None:
        """
        The executable `name` with the header of `overlay`.
        @return None when no test of it uses the header, or none compiles with it.
        """
        replaced = {}
        for user in self._objects(header, name):
            made = scratch / "tests" / os.path.basename(user)
            made.parent.mkdir(parents=True, exist_ok=True)
            command = list(self._commands[user])
            command[command.index("-o") + 1] = str(made)
            command[1:1] = ["-w", f"-I{overlay}"]
            done = subprocess.run(command, cwd=self.build, capture_output=True, check=False)
            if done.returncode == 0:
                replaced[user] = str(made)
        if not replaced:
            return None
        if name not in self._links:
            last = self._ninja("commands", name).strip().splitlines()[-1]
            self._links[name] = [word for word in shlex.split(last) if word not in (":", "&&")]
        path = scratch / "tests" / name
        command = [replaced.get(word, word) for word in self._links[name]]
        command[command.index("-o") + 1] = str(path)
        done = subprocess.run(command, cwd=self.build, capture_output=True, check=False)
        return path if done.returncode == 0 else None
