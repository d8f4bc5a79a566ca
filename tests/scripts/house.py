"""Houses for the tests of the scripts: copies with stand-ins for what is slow."""

import contextlib
import os
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

HOUSE = Path(__file__).resolve().parents[2]
STAND_INS = Path(__file__).resolve().parent / "stand_ins"
# What the scripts look for their own folder in is copied.
COPIED = ("run", "test", "bench", "lint", "package", "scripts")
LINKED = ("resources", "platform", "companions", "benchmarks", "CMakePresets.json")
# Where even the superuser is refused what permissions forbid.
DENIED = "-dac_override,-dac_read_search"
AS_PLAIN_USER = ["setpriv", f"--inh-caps={DENIED}", f"--bounding-set={DENIED}"] if os.geteuid() == 0 else []


def eventually(condition, seconds=20):
    """Whether the condition comes true; its value then."""
    until = time.monotonic() + seconds
    while not (value := condition()) and time.monotonic() < until:
        time.sleep(0.02)
    return value


def processes_with(name, value, command=None):
    """The processes that were started with this in their environment; only those whose name it is."""
    found = []
    for folder in Path("/proc").glob("[0-9]*"):
        with contextlib.suppress(OSError):
            if f"{name}={value}".encode() in (folder / "environ").read_bytes().split(b"\0"):
                if command in (None, (folder / "comm").read_text().strip()):
                    found.append(int(folder.name))
    return found


class House:
    """What the scripts need; in place of Wine, the person's display and what builds are stand-ins. It is one that
    the packages install, where nothing is built, or one to build in. Everything it starts goes with it."""

    def __init__(self, is_installed=True):
        self.top = Path(tempfile.mkdtemp(prefix="tarvik-scripts."))
        self.place = self.top / "house"
        self.place.mkdir()
        for part in LINKED:
            (self.place / part).symlink_to(HOUSE / part)
        for part in COPIED:
            (shutil.copytree if (HOUSE / part).is_dir() else shutil.copy)(HOUSE / part, self.place / part)
        if is_installed:
            (self.place / "program").mkdir()
            for file in ("TarvikFileManager.exe", "UNZip.dll"):
                (self.place / "program" / file).write_text(file)
        else:
            for library in ("libarchive", "lhasa"):
                (self.place / "build/sources" / library).mkdir(parents=True)
                (self.place / "build/sources" / library / ".complete").touch()
        self.home = self.top / "home"
        self.home.mkdir()
        self.data = self.top / "data/tarvik-file-manager"
        self.prefix = self.data / "prefix"
        self.bin = self.top / "bin"
        shutil.copytree(STAND_INS, self.bin)
        # A process is called like its file.
        shutil.copy(shutil.which("sleep"), self.bin / "TarvikFileManager.exe")
        self.environment = {name: value for name, value in os.environ.items() if name not in (
            "DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY", "XDG_DATA_HOME")} | {
            "PATH": f"{self.bin}:{os.environ['PATH']}",
            "HOME": str(self.home),
            "XDG_DATA_HOME": str(self.data.parent),
            "STAND_INS_OF": str(self.top),
        }
        self.started = []

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for process in self.processes():
            with contextlib.suppress(ProcessLookupError):
                os.kill(process, signal.SIGKILL)
        for process in self.started:
            process.wait()
        shutil.rmtree(self.top, ignore_errors=True)

    def processes(self, command=None):
        """Those that belong to this house; only those of this name."""
        return processes_with("STAND_INS_OF", self.top, command)

    def start(self, *arguments, script="run", display=":stand-in", **environment):
        """Starts ./run or another script, with a display of the person's or, when that is None, without."""
        shown = {"DISPLAY": display} if display else {}
        log = (self.top / f"log{len(self.started)}").open("w+")
        process = subprocess.Popen(
            [*AS_PLAIN_USER, self.place / script, *map(str, arguments)],
            stdin=subprocess.DEVNULL,
            stdout=log,
            stderr=subprocess.STDOUT,
            env=self.environment | shown | environment,
            start_new_session=True,
        )
        process.said = lambda: Path(log.name).read_text()
        self.started.append(process)
        return process

    def run(self, *arguments, **options):
        """Starts a script and waits for its end; the status, and what it said."""
        process = self.start(*arguments, **options)
        return process.wait(60), process.said()

    def program(self):
        """The process of the program that runs on the device."""
        found = processes_with("WINEPREFIX", self.prefix, "TarvikFileManag")
        return found[0] if found else None

    def start_shown(self, *arguments, **options):
        """Starts ./run and waits until the program runs."""
        process = self.start(*arguments, **options)
        if not eventually(lambda: self.program() or process.poll() is not None) or process.poll() is not None:
            raise RuntimeError("the program does not start: " + process.said())
        return process

    def environment_of_program(self):
        """What the program was started with, be it on the device or for a picture."""
        process = eventually(lambda: self.processes("TarvikFileManag"))[0]
        entries = Path(f"/proc/{process}/environ").read_bytes().decode().split("\0")
        return dict(entry.split("=", 1) for entry in entries if entry)

    def handed_over(self):
        """The folders that the program was given while it ran."""
        file = self.prefix / "handed over"
        return file.read_text().splitlines() if file.exists() else []

    def end_program(self):
        """The person closes the program."""
        program = self.program()
        os.kill(program, signal.SIGTERM)
        eventually(lambda: self.program() != program)

    def kill(self, process):
        """As `kill -9` does: the run has no time for anything."""
        process.kill()
        process.wait()

    def runs(self):
        """The private folders of runs that are there."""
        return sorted(folder.name for kind in ("run", "shot") for folder in self.data.glob(f"{kind}.[0-9]*"))
