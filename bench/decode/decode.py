#!/usr/bin/env python3
"""What decoding a mixed folder through the whole program costs, against a shell loop over the same tools; and what the
companions cost against ffmpeg's own decoding of the same file.

    bench/decode/decode.py [--build build/release] [--rounds N] [--files N] [--minutes N]

FLAC, Shorten, Wavpack, TTA and Monkey's Audio files of the same audio are decoded to WAV, two at a time; Apple Lossless
is not among them, since the program decodes it by itself and no tool stands against it. Rounds are interleaved, and their
medians are compared.
"""
import os
import pathlib
import shlex
import statistics
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))
from rounds import JOBS, batch, options, remove, seconds  # noqa: E402

# How a file of each kind is made and decoded; the bare tool, called as the program calls it.
KINDS = {
    "flac": ("flac -s -5 {wav} -o {file}", "flac -d {file} -o {out}"),
    "shn": ("shorten {wav} {file}", "shntool conv -o wav -P pct -O never -d {folder} {file}"),
    "wv": ("wavpack -q {wav} -o {file}", "wvunpack {file} -o {out}"),
    "tta": ("ttaenc {wav} -o {file}", "ttaenc {file} -o {out}"),
    "ape": ("mac {wav} {file} -c2000", "mac {file} {out} -d"),
}
COMPANIONS = {"shn": "shorten -x {file} -", "tta": "ttaenc -d -o - {file}", "ape": "mac {file} - -d"}


def filled(template: str, file: pathlib.Path, wav: pathlib.Path | None = None) -> list[str]:
    values = {"file": file, "wav": wav, "out": file.with_suffix(".wav"), "folder": file.parent}
    return template.format(**values).split()


def make_files(folder: pathlib.Path, count: int, minutes: float) -> list[pathlib.Path]:
    wav = folder / "sample.source.wav"
    seconds(["sox", "-q", "-D", "-R", "-r", "44100", "-c", "2", "-n", "-b", "16", str(wav), "synth",
             str(minutes * 60), "pinknoise", "vol", "0.5"])
    files = []
    for number in range(count):
        kind = list(KINDS)[number % len(KINDS)]
        first = folder / f"first.{kind}"
        if not first.exists():
            seconds(filled(KINDS[kind][0], first, wav))
        files.append(folder / f"{number:03}.{kind}")
        os.link(first, files[-1])
    return files


def main() -> None:
    chosen = options(__doc__, files=24)
    build = pathlib.Path(chosen.build).resolve()
    os.environ["PATH"] = f"{build / 'tools'}:{os.environ['PATH']}"
    with tempfile.TemporaryDirectory() as top:
        files = make_files(pathlib.Path(top), chosen.files, chosen.minutes)
        loop = "\n".join(shlex.join(filled(KINDS[file.suffix[1:]][1], file)) for file in files).encode()
        bare, ours = [], []
        for _ in range(chosen.rounds):
            bare.append(seconds(["xargs", f"-P{JOBS}", "-d", "\n", "-n1", "sh", "-c", 'exec $0 </dev/null'], loop))
            remove([str(file) for file in files], "wav")
            ours.append(seconds([batch(chosen.build), "decode", "--jobs", str(JOBS), *map(str, files)]))
            remove([str(file) for file in files], "wav")
        print(f"{chosen.files} files of {chosen.minutes:g} minutes, {JOBS} at a time, "
              f"median of {chosen.rounds} interleaved rounds")
        print(f"  xargs -P{JOBS} over the tools  {statistics.median(bare):8.3f} s")
        print(f"  zolt-batch decode       {statistics.median(ours):8.3f} s"
              f"   ratio {statistics.median(ours) / statistics.median(bare):.3f}")
        for kind, call in COMPANIONS.items():
            file = pathlib.Path(top) / f"first.{kind}"
            theirs, own = [], []
            for _ in range(chosen.rounds):
                theirs.append(seconds(["ffmpeg", "-v", "error", "-i", str(file), "-f", "s16le", "-"]))
                own.append(seconds(filled(call, file)))
            print(f"  {call.split()[0]:8} against ffmpeg {statistics.median(own):8.3f} s"
                  f"   ratio {statistics.median(own) / statistics.median(theirs):.3f}")


if __name__ == "__main__":
    main()
