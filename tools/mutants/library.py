"""The library that is built with one change: the objects that it touches anew, all others as they are."""

import json
import os
import re
import shlex
import shutil
import subprocess
from pathlib import Path

from changes import Change

# The folder of the changed file, below the scratch folder.
OVERLAY = "overlay"

# The nearest objects, in which a change of a header is tried first. One that leaves these as they were is
# taken to be seen by none; one that the tests let pass is compiled into all.
FIRST_OBJECTS = 8

# Reading these takes longer than compiling what uses them; they are read once.
STANDARD_HEADERS = (
    "algorithm array atomic cmath cstdint functional map memory optional span stdexcept string"
    " string_view vector"
)


class Library:
    """Compiles and links in a build folder of its own; the sources stay untouched."""

    def __init__(self, root: Path, build: Path):
        self.root = root
        self.build = build
        self._commands: dict[str, list[str]] = {}
        self._objects: dict[str, str] = {}
        self._users: dict[str, list[str]] = {}
        self._link: list[str] = []

    @property
    def unchanged(self) -> Path:
        """The folder of the library without a change."""
        return self.build

    def prepare(self, jobs: int) -> None:
        """Builds the library without a change and reads how each object was made."""
        if not (self.build / "build.ninja").exists():
            options = [
                "-DCMAKE_BUILD_TYPE=Release",
                "-DCMAKE_CXX_FLAGS_RELEASE=-O1 -DNDEBUG",
                "-DVELLARI_LTO=OFF",
            ]
            options += ["-DVELLARI_TESTS=OFF", "-DVELLARI_BENCH=OFF", "-DVELLARI_GRIDS=OFF"]
            self._run(["cmake", "-G", "Ninja", "-S", str(self.root), "-B", str(self.build), *options])
        self._run(["ninja", "-C", str(self.build), "-j", str(jobs), "Vellari"])
        self._read_commands()
        self._read_users()
        self._precompile()

    def _run(self, command: list[str]) -> str:
        done = subprocess.run(command, capture_output=True, text=True, check=False)
        if done.returncode != 0:
            raise SystemExit(
                f"mutants: {shlex.join(command)} failed:\n{done.stdout[-3000:]}{done.stderr[-3000:]}"
            )
        return done.stdout

    def _read_commands(self) -> None:
        text = (self.build / "compile_commands.json").read_text(encoding="utf-8")
        for entry in json.loads(text):
            file = os.path.relpath(entry["file"], self.root)
            command = shlex.split(entry["command"])
            if "-DVellari_EXPORTS" in command:
                self._commands[file] = command
                self._objects[file] = command[command.index("-o") + 1]
        last = (
            self._run(["ninja", "-C", str(self.build), "-t", "commands", "Vellari"])
            .strip()
            .splitlines()[-1]
        )
        self._link = [word for word in shlex.split(last) if word not in (":", "&&")]

    def _precompile(self) -> None:
        header = self.build / "standard.h"
        header.write_text(
            "".join(f"#include <{name}>\n" for name in STANDARD_HEADERS.split()), encoding="utf-8"
        )
        command = list(next(iter(self._commands.values())))
        command[command.index("-o") + 1] = f"{header}.gch"
        self._run([*command[: command.index("-c")], "-x", "c++-header", str(header)])

    def _read_users(self) -> None:
        files = {object_file: file for file, object_file in self._objects.items()}
        user = None
        for line in self._run(["ninja", "-C", str(self.build), "-t", "deps"]).splitlines():
            if line.startswith(" "):
                used = os.path.relpath(os.path.join(self.build, line.strip()), self.root)
                if user and used != user:
                    self._users.setdefault(used, []).append(user)
            else:
                user = files.get(line.split(":")[0])

    def users(self, file: str) -> list[str]:
        """The sources that a file is compiled into, nearest first."""
        if file in self._commands:
            return [file]
        stem = re.sub(r"(FactsDetail|Detail|Records)?\.h$", "", os.path.basename(file))

        def distance(user: str) -> tuple[bool, bool, str]:
            return (
                os.path.basename(user) != stem + ".cpp",
                os.path.dirname(user) != os.path.dirname(file),
                user,
            )

        return sorted(self._users.get(file, []), key=distance)

    def compile(self, change: Change, users: list[str], scratch: Path) -> list[tuple[str, Path]] | None:
        """
        Compiles the sources with the change.
        @return the objects that came out different, each with its source; None when the compiler refuses.
        """
        overlay = scratch / OVERLAY
        shutil.rmtree(overlay, ignore_errors=True)
        changed = overlay / change.file
        changed.parent.mkdir(parents=True, exist_ok=True)
        changed.write_text(
            change.apply((self.root / change.file).read_text(encoding="utf-8")), encoding="utf-8"
        )
        different = []
        for user in users:
            made = scratch / "objects" / (user + ".o")
            if not self._compile_one(user, overlay, changed if user == change.file else None, made):
                return None
            if made.read_bytes() != (self.build / self._objects[user]).read_bytes():
                different.append((user, made))
        return different

    def _compile_one(self, user: str, overlay: Path, source: Path | None, made: Path) -> bool:
        made.parent.mkdir(parents=True, exist_ok=True)
        command = [word for word in self._commands[user] if word != "-Werror"]
        command[command.index("-o") + 1] = str(made)
        if source:
            command[-1] = str(source)
        command[1:1] = ["-w", f"-I{overlay}", "-include", str(self.build / "standard.h")]
        done = subprocess.run(command, cwd=self.build, capture_output=True, check=False)
        return done.returncode == 0

    def link(self, objects: list[tuple[str, Path]], folder: Path) -> bool:
        """Links the library into a folder with these objects in the place of the unchanged ones."""
        folder.mkdir(parents=True, exist_ok=True)
        command = list(self._link)
        command[command.index("-o") + 1] = str(folder / "Vellari.so")
        for user, made in objects:
            command[command.index(self._objects[user])] = str(made)
        return subprocess.run(command, cwd=self.build, capture_output=True, check=False).returncode == 0
