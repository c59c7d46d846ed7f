#!/usr/bin/env python3
"""What lossy encoding through the whole program costs and gives.

    bench/lossy/lossy.py [--build build/release] [--rounds N] [--files N] [--minutes N]

First the bit rate of each mode beside the asked one. Then WAV files are encoded two at a time: to MP3 against xargs over
the same lame, to AAC against xargs over ffmpeg with the same settings, which leaves out the gapless pass that ours
makes. Rounds are interleaved, and their medians are compared.
"""
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))
from rounds import JOBS, batch, links, options, remove, seconds  # noqa: E402

RATES = [("MP3", "CBR", 128), ("MP3", "CBR", 192), ("MP3", "CBR", 320), ("AAC", "CBR", 128), ("AAC", "CBR", 192),
         ("AAC", "ABR", 160), ("AAC", "VBR Constrained", 160)]
QUALITIES = [("MP3", "VBR", level) for level in (0, 3, 6, 9)] + [("AAC", "VBR", level) for level in (32, 64, 88, 127)]
VBR_RATES = {0: 245, 3: 175, 6: 115, 9: 65}
EXTENSIONS = {"MP3": "mp3", "AAC": "m4a"}


def make_samples(folder: pathlib.Path, count: int, minutes: float) -> list[str]:
    """Plucked strings with a little noise."""
    first = folder / "sample.source"
    seconds(["sox", "-q", "-D", "-R", "-r", "44100", "-c", "2", "-n", "-b", "16", "-t", "wav", str(first), "synth", "2",
             "pluck", "A2", "synth", "2", "pluck", "mix", "E4", "synth", "2", "pinknoise", "mix", "vol", "0.5", "repeat",
             str(int(minutes * 30))])
    return links(first, count)


def rate_of(file: str) -> int:
    answer = subprocess.run(["ffprobe", "-v", "error", "-select_streams", "a", "-show_entries", "stream=bit_rate", "-of",
                             "csv=p=0", file], capture_output=True, check=True).stdout
    return int(answer.strip().strip(b",")) // 1000


def show_rates(program: str, folder: pathlib.Path) -> None:
    (source,) = make_samples(folder, 1, 1)
    print("bit rates, kbit/s            asked  measured")
    for kind, mode, level in RATES + QUALITIES:
        seconds([program, "lossy", "--to", kind, "--mode", mode, "--level", str(level), source])
        made = source[:-3] + EXTENSIONS[kind]
        asked = level if (kind, mode, level) in RATES else VBR_RATES.get(level, "-") if kind == "MP3" else "-"
        print(f"  {kind} {mode + ' ' + str(level):22} {asked:>6} {rate_of(made):>9}")
        os.unlink(made)
    os.unlink(source)
    (folder / "sample.source").unlink()


def compare(program: str, files: list[str], rounds: int, kind: str, bare: list[str], aim: float) -> None:
    names = "\0".join(file[:-4] for file in files).encode()
    theirs, ours = [], []
    for _ in range(rounds):
        theirs.append(seconds(["xargs", "-0", f"-P{JOBS}", "-I{}", *bare], names))
        remove(files, EXTENSIONS[kind])
        ours.append(seconds([program, "lossy", "--to", kind, "--mode", "CBR", "--level", "192", "--jobs", str(JOBS),
                             *files]))
        remove(files, EXTENSIONS[kind])
    print(f"  xargs -P{JOBS} {bare[0]:18} {statistics.median(theirs):8.3f} s")
    print(f"  zolt-batch lossy --to {kind}   {statistics.median(ours):8.3f} s")
    print(f"  ratio                      {statistics.median(ours) / statistics.median(theirs):8.3f}   (aim: {aim})")


def main() -> None:
    chosen = options(__doc__, files=12)
    program = batch(chosen.build)
    with tempfile.TemporaryDirectory() as top:
        show_rates(program, pathlib.Path(top))
        files = make_samples(pathlib.Path(top), chosen.files, chosen.minutes)
        print(f"{chosen.files} files of {chosen.minutes:g} minutes at 192 kbit/s, {JOBS} at a time, "
              f"median of {chosen.rounds} interleaved rounds")
        compare(program, files, chosen.rounds, "MP3", ["lame", "--quiet", "-b", "192", "{}.wav", "{}.mp3"], 1.1)
        compare(program, files, chosen.rounds, "AAC",
                ["ffmpeg", "-v", "error", "-i", "{}.wav", "-c:a", "aac", "-b:a", "192k", "-threads", "1", "-f", "ipod",
                 "{}.m4a"], 1.08)


if __name__ == "__main__":
    main()
