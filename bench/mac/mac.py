#!/usr/bin/env python3
"""What Monkey's Audio files of our own encoder weigh and cost, beside flac and wavpack.

    bench/mac/mac.py [--build build/release] [--minutes 30] [--bits 16]

Music is written by music.py and played by fluidsynth (packages fluidsynth and timgm6mb-soundfont). Every file is
decoded by ffmpeg and held against its source.
"""
import argparse
import pathlib
import subprocess
import sys
import tempfile
import time

FONT = "/usr/share/sounds/sf2/TimGM6mb.sf2"
LEVELS = (1000, 2000, 3000, 4000, 5000)


def played(folder: pathlib.Path, minutes: float, bits: int) -> list[pathlib.Path]:
    writer = pathlib.Path(__file__).with_name("music.py")
    subprocess.run([sys.executable, writer, folder, str(int(minutes * 60 / 4))], check=True)
    form = "s16" if bits == 16 else "s24"
    for notes in sorted(folder.glob("*.mid")):
        subprocess.run(["fluidsynth", "-niq", "-F", notes.with_suffix(".wav"), "-r", "44100", "-O", form, "-T", "wav",
                        "-g", "0.6", FONT, notes], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return sorted(folder.glob("*.wav"))


def samples(path: pathlib.Path, bits: int) -> bytes:
    return subprocess.run(["ffmpeg", "-v", "error", "-i", path, "-f", f"s{bits}le", "-"], check=True,
                          stdout=subprocess.PIPE).stdout


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default="build/release")
    parser.add_argument("--minutes", type=float, default=30)
    parser.add_argument("--bits", type=int, choices=(16, 24), default=16)
    options = parser.parse_args()
    mac = pathlib.Path(options.build) / "companions" / "mac"
    if not mac.exists():
        mac = pathlib.Path(options.build) / "tools" / "mac"
    coders = {"flac -8": lambda source, made: ["flac", "-8", "-s", "-o", made, source],
              "wavpack -hh": lambda source, made: ["wavpack", "-hh", "-q", source, "-o", made]}
    for level in LEVELS:
        coders[f"mac -c{level}"] = lambda source, made, level=level: [mac.resolve(), source, made, f"-c{level}"]
    with tempfile.TemporaryDirectory() as top:
        sources = played(pathlib.Path(top), options.minutes, options.bits)
        if not sources:
            sys.exit("fluidsynth gave no music")
        whole = sum(source.stat().st_size for source in sources)
        flac = 0
        print(f"{len(sources)} pieces, {options.minutes:g} minutes of {options.bits} bits, {whole / 1e6:.1f} MB")
        print(f"{'':14}{'MB':>9}{'of WAV':>9}{'of flac':>9}{'MB/s':>9}")
        for name, command in coders.items():
            size = taken = 0.0
            for source in sources:
                made = source.with_suffix({"f": ".flac", "w": ".wv", "m": ".ape"}[name[0]])
                made.unlink(missing_ok=True)
                started = time.perf_counter()
                subprocess.run(command(source, made), check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
                taken += time.perf_counter() - started
                size += made.stat().st_size
                if name[0] == "m" and samples(made, options.bits) != samples(source, options.bits):
                    sys.exit(f"{name}: {source.name} does not come back")
            flac = flac or size
            print(f"{name:14}{size / 1e6:9.2f}{size / whole:9.3f}{size / flac:9.3f}{whole / taken / 1e6:9.1f}", flush=True)


if __name__ == "__main__":
    main()
