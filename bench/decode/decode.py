#!/usr/bin/env python3
"""What decoding a mixed folder through the whole program costs, against a shell loop over the same tools; and what the
companions cost against ffmpeg's own decoding of the same file.

    bench/decode/decode.py [--build build/release] [--rounds N] [--files N] [--minutes N]

FLAC, Shorten, Wavpack, TTA and Monkey's Audio files of the same audio are decoded to WAV, two at a time; Apple Lossless
is not among them, since the program decodes it by itself and no tool stands against it. Rounds are interleaved, and their
medians are compared.
"""
import argparse
import os
import pathlib
import shlex
import statistics
import subprocess
import sys
import tempfile
import time

JOBS = 2
# How a file of each kind is made and decoded; the bare tool, called as the program calls it.
KINDS = {
    "flac": ("flac -s -5 {wav} -o {file}", "flac -d {file} -o {out}"),
    "shn": ("shorten {wav} {file}", "shntool conv -o wav -P pct -O never -d {folder} {file}"),
    "wv": ("wavpack -q {wav} -o {file}", "wvunpack {file} -o {out}"),
    "tta": ("ttaenc {wav} -o {file}", "ttaenc {file} -o {out}"),
    "ape": ("mac {wav} {file} -c2000", "mac {file} {out} -d"),
}
COMPANIONS = {"shn": "shorten -x {file} -", "tta": "ttaenc -d -o - {file}", "ape": "mac {file} - -d"}


def run(command: list[str], text: bytes = b"") -> float:
    started = time.perf_counter()
    status = subprocess.run(command, input=text, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode
    if status != 0:
        sys.exit(f"{shlex.join(command)} failed with {status}")
    return time.perf_counter() - started


def filled(template: str, file: pathlib.Path, wav: pathlib.Path | None = None) -> list[str]:
    values = {"file": file, "wav": wav, "out": file.with_suffix(".wav"), "folder": file.parent}
    return template.format(**values).split()


def make_files(folder: pathlib.Path, count: int, minutes: float) -> list[pathlib.Path]:
    wav = folder / "sample.source.wav"
    subprocess.run(["sox", "-q", "-D", "-R", "-r", "44100", "-c", "2", "-n", "-b", "16", str(wav), "synth",
                    str(minutes * 60), "pinknoise", "vol", "0.5"], check=True)
    files = []
    for number in range(count):
        kind = list(KINDS)[number % len(KINDS)]
        first = folder / f"first.{kind}"
        if not first.exists():
            run(filled(KINDS[kind][0], first, wav))
        files.append(folder / f"{number:03}.{kind}")
        os.link(first, files[-1])
    return files


def remove_outputs(files: list[pathlib.Path]) -> None:
    for file in files:
        file.with_suffix(".wav").unlink()


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default="build/release")
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--files", type=int, default=24)
    parser.add_argument("--minutes", type=float, default=4)
    options = parser.parse_args()
    build = pathlib.Path(options.build).resolve()
    os.environ["PATH"] = f"{build / 'tools'}:{os.environ['PATH']}"
    with tempfile.TemporaryDirectory() as top:
        files = make_files(pathlib.Path(top), options.files, options.minutes)
        loop = "\n".join(shlex.join(filled(KINDS[file.suffix[1:]][1], file)) for file in files).encode()
        bare, ours = [], []
        for _ in range(options.rounds):
            bare.append(run(["xargs", f"-P{JOBS}", "-d", "\n", "-n1", "sh", "-c", 'exec $0 </dev/null'], loop))
            remove_outputs(files)
            ours.append(run([str(build / "src/app/zolt-batch"), "decode", "--jobs", str(JOBS), *map(str, files)]))
            remove_outputs(files)
        print(f"{options.files} files of {options.minutes:g} minutes, {JOBS} at a time, "
              f"median of {options.rounds} interleaved rounds")
        print(f"  xargs -P{JOBS} over the tools  {statistics.median(bare):8.3f} s")
        print(f"  zolt-batch decode       {statistics.median(ours):8.3f} s"
              f"   ratio {statistics.median(ours) / statistics.median(bare):.3f}")
        for kind, call in COMPANIONS.items():
            file = pathlib.Path(top) / f"first.{kind}"
            theirs, own = [], []
            for _ in range(options.rounds):
                theirs.append(run(["ffmpeg", "-v", "error", "-i", str(file), "-f", "s16le", "-"]))
                own.append(run(filled(call, file)))
            print(f"  {call.split()[0]:8} against ffmpeg {statistics.median(own):8.3f} s"
                  f"   ratio {statistics.median(own) / statistics.median(theirs):.3f}")


if __name__ == "__main__":
    main()
