#!/usr/bin/env python3
"""What encoding through the whole program costs, against the bare tool.

    bench/encode/encode.py [--build build/release] [--rounds N] [--files N] [--minutes N]

WAV files are encoded to FLAC at level 5, two at a time. Rounds are interleaved, and their medians are compared.
"""
import pathlib
import statistics
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))
from rounds import JOBS, batch, links, options, remove, seconds  # noqa: E402


def make_samples(folder: pathlib.Path, count: int, minutes: float) -> list[str]:
    first = folder / "sample.source"
    seconds(["sox", "-q", "-D", "-R", "-r", "44100", "-c", "2", "-n", "-b", "16", "-t", "wav", str(first),
             "synth", str(minutes * 60), "pinknoise", "vol", "0.5"])
    return links(first, count)


def main() -> None:
    chosen = options(__doc__, files=12)
    with tempfile.TemporaryDirectory() as top:
        files = make_samples(pathlib.Path(top), chosen.files, chosen.minutes)
        bare, ours = [], []
        for _ in range(chosen.rounds):
            bare.append(seconds(["xargs", "-0", f"-P{JOBS}", "-n1", "flac", "-5"], "\0".join(files).encode()))
            remove(files, "flac")
            ours.append(seconds([batch(chosen.build), "encode", "--level", "5", "--jobs", str(JOBS), *files]))
            remove(files, "flac")
    print(f"{chosen.files} files of {chosen.minutes:g} minutes, {JOBS} at a time, "
          f"median of {chosen.rounds} interleaved rounds")
    print(f"  xargs -P{JOBS} -n1 flac -5  {statistics.median(bare):8.3f} s")
    print(f"  zolt-batch encode         {statistics.median(ours):8.3f} s")
    print(f"  ratio                     {statistics.median(ours) / statistics.median(bare):8.3f}   (aim: 1.05)")


if __name__ == "__main__":
    main()
