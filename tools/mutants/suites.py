"""Which tests cover a file, and what they say of a library."""

import os
import re
import shutil
import signal
import subprocess
import threading
from dataclasses import dataclass
from pathlib import Path

GREATEST_MEMORY = 1024 * 1024  # KiB of address space
GREATEST_FILE = 16 * 1024 * 1024  # KiB that a test may write; one writes a file with great holes


@dataclass(frozen=True)
class Executable:
    """An executable of tests: the rooms that it can see, and the processor seconds that it takes."""

    name: str
    sees: tuple[str, ...]
    seconds: int
    far: bool = False


_ALL = ("frame/", "core/", "shell/")

# Quick ones first. Those that can't see the library aren't here.
EXECUTABLES = [
    Executable("tests_datum", ("frame/", "core/", "shell/units/", "shell/datum/"), 1),
    Executable("tests_transforms", _ALL, 1),
    Executable("tests_units", ("frame/", "core/", "shell/units/"), 1),
    Executable("tests_projections", _ALL, 1),
    Executable("tests_docs", _ALL, 2),
    Executable("tests_frame", ("frame/",), 2),
    Executable("tests_core", ("frame/", "core/"), 2),
    Executable("tests_hostkit", ("frame/",), 2),
    Executable("tests_grids", _ALL, 2),
    Executable("tests_refsystems", _ALL, 10, far=True),
    Executable("tests_cli", _ALL, 10, far=True),
    Executable("tests_accuracy", _ALL, 20, far=True),
    Executable("tests_catalog", _ALL, 30, far=True),
    Executable("tests_oracle", _ALL, 120, far=True),
]

SECONDS = {one.name: one.seconds for one in EXECUTABLES}

# The executable of a room; its tests lie in the folder of the same name.
_ROOMS = [
    ("frame/", "tests_frame"),
    ("core/", "tests_core"),
    ("shell/units/", "tests_units"),
    ("shell/datum/", "tests_datum"),
    ("shell/projections/", "tests_projections"),
    ("shell/transforms/", "tests_transforms"),
    ("shell/refsystems/", "tests_refsystems"),
]


@dataclass(frozen=True)
class Step:
    """Tests that run together: an executable, all of it or by a filter."""

    executable: str
    filter: str
    seconds: int
    far: bool
    path: Path | None = None  # of an executable that was built for this step

    def __str__(self) -> str:
        return self.executable if self.filter == "*" else f"{self.executable} ({self.filter})"


@dataclass(frozen=True)
class Verdict:
    """What a step says: the first test that failed, or None, and how it ended."""

    test: str | None
    how: str


class Suites:
    """The tests of a build, copied, so that a build meanwhile doesn't disturb."""

    def __init__(self, root: Path, tests: Path, copies: Path):
        self.root = root
        self.tests = tests
        self.copies = copies
        self.left_out: set[tuple[str, str]] = set()
        self._by_file: dict[str, list[Step]] = {}

    def prepare(self) -> None:
        """Copies the executables beside the unchanged library, where they look for it."""
        self.copies.mkdir(parents=True, exist_ok=True)
        missing = [one.name for one in EXECUTABLES if not (self.tests / one.name).exists()]
        if missing:
            raise SystemExit(f"mutants: {self.tests} has no {', '.join(missing)}: build all tests first")
        for one in EXECUTABLES:
            source, target = self.tests / one.name, self.copies / one.name
            if not target.exists() or source.read_bytes() != target.read_bytes():
                shutil.copy2(source, target)

    @staticmethod
    def home(file: str) -> str:
        """The executable of a file's room."""
        return next(name for prefix, name in _ROOMS if file.startswith(prefix))

    @staticmethod
    def hosts(header: str) -> list[str]:
        """The executables whose tests are compiled with a header and ask for what it holds."""
        home = Suites.home(header)
        return [home, "tests_hostkit", "tests_core"] if header.startswith("frame/imported/") else [home]

    def steps(self, file: str) -> list[Step]:
        """The tests that cover a file: its own suites, those of its room, the others that can see it."""
        if file not in self._by_file:
            home = self.home(file)
            steps = []
            own = self._own_suites(file)
            if own:
                steps.append(Step(home, own, SECONDS[home], False))
            steps.append(Step(home, "*", SECONDS[home], False))
            for one in EXECUTABLES:
                if one.name != home and file.startswith(one.sees):
                    steps.append(Step(one.name, "*", one.seconds, one.far))
            self._by_file[file] = steps
        return self._by_file[file]

    def _own_suites(self, file: str) -> str:
        stem = re.sub(r"(FactsDetail|Detail|Records)?\.(h|cpp)$", "", os.path.basename(file))
        suites: list[str] = []
        for path in sorted((self.root / "tests" / os.path.dirname(file)).glob(f"{stem}*.cpp")):
            for suite in re.findall(
                r"^(?:TYPED_)?TEST(?:_[FP])?\((\w+),", path.read_text(encoding="utf-8"), re.M
            ):
                if suite not in suites:
                    suites.append(suite)
        return ":".join(f"{name}.*:*/{name}.*:{name}/*" for name in suites)

    def leave_out(self, executable: str, test: str) -> None:
        """A test that fails without a change says nothing of one."""
        self.left_out.add((executable, test))

    def _filter(self, step: Step) -> str:
        without = [test for executable, test in sorted(self.left_out) if executable == step.executable]
        return step.filter + ("-" + ":".join(without) if without else "")

    def run(self, step: Step, library: Path, scratch: Path) -> Verdict:
        """Runs tests with the library of a folder, within limits of time and memory."""
        temporary = scratch / "temporary"
        shutil.rmtree(temporary, ignore_errors=True)
        temporary.mkdir(parents=True)
        limit = 2 * step.seconds + 4
        limits = f'ulimit -c 0 -v {GREATEST_MEMORY} -t {limit} -f {GREATEST_FILE}; exec "$@"'
        arguments = ["--gtest_fail_fast", "--gtest_color=no", f"--gtest_filter={self._filter(step)}"]
        command = [
            "bash",
            "-c",
            limits,
            "limits",
            str(step.path or self.copies / step.executable),
            *arguments,
        ]
        # The libraries that aren't changed are those beside the tests' folder.
        path = f"{library}:{self.tests.parent}"
        environment = {**os.environ, "LD_LIBRARY_PATH": path, "TMPDIR": str(temporary)}
        log = scratch / "output"
        with open(log, "wb") as output:
            process = subprocess.Popen(
                command,
                cwd=temporary,
                env=environment,
                stdin=subprocess.DEVNULL,
                stdout=output,
                stderr=output,
                start_new_session=True,
            )
            # Other programs share the processors: the time on the clock is only what ends a deadlock.
            watch = threading.Timer(20 * limit, lambda: os.killpg(process.pid, signal.SIGKILL))
            watch.start()
            code = process.wait()
            watch.cancel()
        return _verdict(code, log.read_bytes().decode("utf-8", "replace"))


def _verdict(code: int, output: str) -> Verdict:
    if code == 0 and "[  PASSED  ]" in output and "[  FAILED  ]" not in output:
        return Verdict(None, "passed")
    failed = re.search(r"^\[  FAILED  \] ([\w/.]+)", output, re.M)
    if failed:
        return Verdict(failed.group(1).rstrip(".,"), "failed")
    begun = re.findall(r"^\[ RUN      \] (\S+)", output, re.M)
    ends = {-signal.SIGXCPU: "hung", -signal.SIGKILL: "hung"}
    how = ends.get(code, f"ended with {code}")
    return Verdict(begun[-1] if begun else "start of the program", how)
