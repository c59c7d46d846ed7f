"""Drives the window program on a virtual display, as a person would: files as arguments, then Ctrl+Return."""
import os
import pathlib
import subprocess
import sys
import tempfile
import time


LOOK = 0.02  # seconds between two looks, which cost the tools time: at the folder only when no tool runs


class Shown:
    """Seconds from the key press to the last change of an output, and the most memory in MiB meanwhile."""

    def __init__(self, seconds: float, mebibytes: float):
        self.seconds = seconds
        self.mebibytes = mebibytes


def resident(pid: int) -> float:
    with open(f"/proc/{pid}/status", encoding="ascii") as status:
        for entry in status:
            if entry.startswith("VmRSS:"):
                return int(entry.split()[1]) / 1024
    return 0.0


def output(file: str) -> str:
    return file[:-4] + "wav"


def has_children(pid: int) -> bool:
    with open(f"/proc/{pid}/task/{pid}/children", encoding="ascii") as children:
        return bool(children.read(1))


class Window:
    def __init__(self, program: pathlib.Path):
        number = next(n for n in range(90, 200) if not os.path.exists(f"/tmp/.X{n}-lock"))
        self.server = subprocess.Popen(["Xvfb", f":{number}", "-screen", "0", "1280x900x24"], stderr=subprocess.DEVNULL)
        self.home = tempfile.TemporaryDirectory(prefix="zolt-bench-home-")
        self.environment = dict(os.environ, DISPLAY=f":{number}", QT_QPA_PLATFORM="xcb", HOME=self.home.name,
                                XDG_CONFIG_HOME=self.home.name, DBUS_SESSION_BUS_ADDRESS="unix:path=/nonexistent")
        self.program = str(program)
        time.sleep(1)
        self.idle = self._idle()

    def _start(self, files: list[str]) -> subprocess.Popen:
        process = subprocess.Popen([self.program, *files], env=self.environment, stderr=subprocess.DEVNULL)
        self._xdotool("search", "--sync", "--onlyvisible", "--name", "Zolt")
        time.sleep(1.5)  # the list is filled and drawn
        return process

    def _idle(self) -> float:
        process = self._start([])
        memory = resident(process.pid)
        process.kill()
        process.wait()
        return memory

    def _xdotool(self, *arguments: str) -> None:
        subprocess.run(["xdotool", *arguments], env=self.environment, check=True, stdout=subprocess.DEVNULL, timeout=60)

    def decode(self, files: list[str]) -> Shown:
        process = self._start([os.path.dirname(files[0])])
        # It takes longer to connect than to press: it is there before the time begins.
        keys = subprocess.Popen(["xdotool", "-"], env=self.environment, stdin=subprocess.PIPE, stdout=subprocess.DEVNULL)
        time.sleep(0.5)
        started = time.time()
        keys.communicate(b"key ctrl+Return\n")
        most = 0.0
        while has_children(process.pid) or not all(map(os.path.exists, map(output, files))):
            most = max(most, resident(process.pid))
            if process.poll() is not None:
                sys.exit("the window program ended")
            if time.time() - started > 600:
                sys.exit("the window program does not decode")
            time.sleep(LOOK)
        seconds = max(os.stat(output(file)).st_ctime for file in files) - started
        process.kill()
        process.wait()
        return Shown(seconds, most)

    def close(self) -> None:
        self.server.terminate()
        self.server.wait()
        self.home.cleanup()
