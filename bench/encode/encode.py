#!/usr/bin/env python3
"""What encoding through the whole program costs, against the bare tool.

    bench/encode/encode.py [--build build/release] [--rounds N] [--files N] [--minutes N]

WAV files are encoded to FLAC at level 5, two at a time. Rounds are interleaved, and their medians are compared.
"""
import argparse
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

JOBS = 2


def make_samples(folder: pathlib.Path, count: int, minutes: float) -> list[str]:
    """`count` links to one file, so that reading them costs alike."""
    first = folder / "sample.source"
    subprocess.run(["sox", "-q", "-D", "-R", "-r", "44100", "-c", "2", "-n", "-b", "16", "-t", "wav", str(first),
                    "synth", str(minutes * 60), "pinknoise", "vol", "0.5"], check=True)
    paths = [folder / f"{number:03}.wav" for number in range(count)]
    for path in paths:
        os.link(first, path)
    return [str(path) for path in paths]


def seconds(command: list[str], files: list[str], text: bytes | None = None) -> float:
    started = time.perf_counter()
    status = subprocess.run(command, input=text if text else b"", stdout=subprocess.DEVNULL,
                            stderr=subprocess.DEVNULL).returncode
    taken = time.perf_counter() - started
    if status != 0:
        sys.exit(f"{command[0]} failed with {status}")
    for file in files:
        os.unlink(file[:-3] + "flac")
    return taken


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default="build/release")
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--files", type=int, default=12)
    parser.add_argument("--minutes", type=float, default=4)
    options = parser.parse_args()
    batch = str(pathlib.Path(options.build) / "src" / "app" / "zolt-batch")
    with tempfile.TemporaryDirectory() as top:
        folder = pathlib.Path(top)
        files = make_samples(folder, options.files, options.minutes)
        bare, ours = [], []
        for _ in range(options.rounds):
            bare.append(seconds(["xargs", "-0", f"-P{JOBS}", "-n1", "flac", "-5"], files, "\0".join(files).encode()))
            ours.append(seconds([batch, "encode", "--level", "5", "--jobs", str(JOBS), *files], files))
    print(f"{options.files} files of {options.minutes:g} minutes, {JOBS} at a time, "
          f"median of {options.rounds} interleaved rounds")
    print(f"  xargs -P{JOBS} -n1 flac -5  {statistics.median(bare):8.3f} s")
    print(f"  zolt-batch encode         {statistics.median(ours):8.3f} s")
    print(f"  ratio                     {statistics.median(ours) / statistics.median(bare):8.3f}   (aim: 1.05)")


if __name__ == "__main__":
    main()
