"""What the benchmarks of whole programs share: their options, timed runs, and files that cost alike to read."""
import argparse
import os
import pathlib
import shlex
import subprocess
import sys
import time

JOBS = 2


def options(document: str, files: int) -> argparse.Namespace:
    """The command line: build folder, rounds, count of files (otherwise `files`) and their length in minutes."""
    parser = argparse.ArgumentParser(description=document, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default="build/release")
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--files", type=int, default=files)
    parser.add_argument("--minutes", type=float, default=4)
    return parser.parse_args()


def batch(build: str) -> str:
    """zolt-batch of that build."""
    return str(pathlib.Path(build).resolve() / "src" / "app" / "zolt-batch")


def seconds(command: list[str], text: bytes = b"") -> float:
    """Runs it on that standard input; a failure ends the benchmark. How long it took."""
    started = time.perf_counter()
    status = subprocess.run(command, input=text, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode
    taken = time.perf_counter() - started
    if status != 0:
        sys.exit(f"{shlex.join(command[:6])} failed with {status}")
    return taken


def links(first: pathlib.Path, count: int) -> list[str]:
    """That many WAV names for one file, beside it."""
    paths = [str(first.with_name(f"{number:03}.wav")) for number in range(count)]
    for path in paths:
        os.link(first, path)
    return paths


def remove(files: list[str], extension: str) -> None:
    """Takes away what was made of each file."""
    for file in files:
        os.unlink(f"{os.path.splitext(file)[0]}.{extension}")
