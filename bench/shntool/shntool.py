#!/usr/bin/env python3
"""What shntool's commands cost in the whole program, against the bare tool.

    bench/shntool/shntool.py [--build build/release] [--rounds N] [--seconds OF_A_TRACK] [--len-seconds OF_A_FILE]

Runs are interleaved: each round takes every measurement once, and the medians over the rounds are compared. The bare
tool is the companion in the tools directory, so that both sides do the same work; the packaged one alone is a line of
its own. "len" reads headers: over WAV files it is done in hundredths of a second, however long they are, and the start
of a program is much of that. Both are timed over the first file alone as well, which tells what this program adds when
it starts and what with each further file. At the end stands what a piece of the tool's output costs in process.
"""
import argparse
import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import time


def make_show(folder: pathlib.Path, tracks: int, seconds: float) -> dict[str, list[str]]:
    """Tracks of CD audio off a sector boundary, as WAV and as FLAC."""
    files: dict[str, list[str]] = {}
    for extension in "wav", "flac":
        (folder / extension).mkdir(parents=True)
        files[extension] = [str(folder / extension / f"d1t{track:03}.{extension}") for track in range(1, tracks + 1)]
    for track, wav in enumerate(files["wav"]):
        frames = int(seconds * 44100) // 588 * 588 + 100 + track
        subprocess.run(["sox", "-q", "-D", "-r", "44100", "-n", "-b", "16", "-c", "2", wav,
                        "synth", f"{frames}s", "sine", str(200 + track)], check=True)
        subprocess.run(["flac", "-s", "-o", files["flac"][track], wav], check=True)
    return files


def seconds(command: list[str], output: pathlib.Path | None) -> float:
    if output:
        shutil.rmtree(output, ignore_errors=True)
        output.mkdir()
    started = time.perf_counter()
    done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    taken = time.perf_counter() - started
    if done.returncode != 0:
        sys.exit(f"{command[:3]} failed: {done.stdout[-300:]!r}")
    return taken


def size(files: list[str]) -> str:
    return f"{len(files)} {pathlib.Path(files[0]).suffix[1:]} files, {sum(map(os.path.getsize, files)) / 1e6:.1f} MB"


def compare(title: str, contenders: dict[str, list[str]], rounds: int,
            output: pathlib.Path | None = None) -> dict[str, float]:
    runs: dict[str, list[float]] = {name: [] for name in contenders}
    for _ in range(rounds):
        for name, command in contenders.items():
            runs[name].append(seconds(command, output))
    medians = {name: statistics.median(times) for name, times in runs.items()}
    print(f"{title}, median of {rounds} interleaved rounds")
    for name, taken in medians.items():
        print(f"  {name:<40}{taken:>10.3f} s", flush=True)
    print(f"  {'ratio to the bare tool':<40}{medians['zolt-batch'] / medians['shntool']:>10.3f}     (aim: 1.05)")
    return medians


def compare_len(batch: str, tool: str, files: list[str], rounds: int) -> None:
    contenders = {"packaged shntool": ["/usr/bin/shntool", "len", *files], "shntool": [tool, "len", *files],
                  "zolt-batch": [batch, "shntool", "len", *files],
                  "shntool, first file": [tool, "len", files[0]],
                  "zolt-batch, first file": [batch, "shntool", "len", files[0]]}
    medians = compare(f"len over {size(files)}", contenders, rounds)
    start = medians["zolt-batch, first file"] - medians["shntool, first file"]
    further = (medians["zolt-batch"] - medians["shntool"] - start) / (len(files) - 1)
    print(f"  {'added at the start':<40}{start * 1e3:>10.3f} ms")
    print(f"  {'added with each further file':<40}{further * 1e3:>10.3f} ms")


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default="build/release")
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--seconds", type=float, default=60, help="length of a track of the show")
    parser.add_argument("--len-seconds", type=float, default=2, help="length of a file for len")
    options = parser.parse_args()
    build = pathlib.Path(options.build).resolve()
    batch, tool = str(build / "src" / "app" / "zolt-batch"), str(build / "tools" / "shntool")
    top = pathlib.Path(tempfile.mkdtemp(prefix="zolt-bench-"))
    out = top / "out"
    try:
        for files in make_show(top / "many", 200, options.len_seconds).values():
            compare_len(batch, tool, files, options.rounds)
        for files in make_show(top / "show", 20, options.seconds).values():
            call = ["fix", "-P", "pct", "-O", "never", "-k", "-d", str(out), "-o", "flac", *files]
            compare(f"fix over a show of {size(files)}",
                    {"shntool": [tool, *call], "zolt-batch": [batch, "fix", "--out", str(out), *files]},
                    options.rounds, out)
    finally:
        shutil.rmtree(top)
    subprocess.run([build / "bench" / "shntool" / "shntool_pieces_bench"], check=True)


if __name__ == "__main__":
    main()
