#!/usr/bin/env python3
"""What a task costs in the whole program, against the bare tool.

    bench/queue/queue.py [--build build/release] [--rounds N] [--files N] [--many N] [--window]

Runs are interleaved: each round takes every measurement once, and the medians over the rounds are compared. --window
also decodes in the window program, on a virtual display (needs Xvfb and xdotool). TMPDIR=/dev/shm keeps the noise of a
disk that makes and removes thousands of files out of it.
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

sys.path.insert(0, os.path.dirname(__file__))
from window import Window, output  # noqa: E402

JOBS = 2


def make_samples(folder: pathlib.Path, count: int) -> list[str]:
    """`count` links to one short FLAC file, so that reading them costs alike."""
    folder.mkdir()
    first = folder / "sample.flac-source"
    subprocess.run(["sox", "-q", "-D", "-r", "44100", "-c", "2", "-n", "-b", "16", "-t", "flac", str(first),
                    "synth", "0.2", "pluck", "A3"], check=True)
    paths = [folder / f"{number:05}.flac" for number in range(count)]
    for path in paths:
        os.link(first, path)
    return [str(path) for path in paths]


def remove_outputs(files: list[str]) -> None:
    for file in files:
        if not os.path.exists(output(file)):
            sys.exit(f"{output(file)} was not written")
        os.unlink(output(file))


class Run:
    """Seconds and peak memory in MiB of one program."""

    def __init__(self, command: list[str], files: list[str], stdin: bytes | None = None):
        started = time.perf_counter()
        process = subprocess.Popen(command, stdin=subprocess.PIPE if stdin else subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        if stdin:
            process.stdin.write(stdin)
            process.stdin.close()
        _, status, usage = os.wait4(process.pid, 0)
        self.seconds = time.perf_counter() - started
        self.mebibytes = usage.ru_maxrss / 1024
        if status != 0:
            sys.exit(f"{command[0]} failed with {status}")
        remove_outputs(files)


def through_queue(batch: str, files: list[str], folder: pathlib.Path) -> Run:
    return Run([batch, "decode", "--jobs", str(JOBS), str(folder)], files)


def through_xargs(files: list[str]) -> Run:
    return Run(["xargs", "-0", f"-P{JOBS}", "-n1", "flac", "-d"], files, "\0".join(files).encode())


def median(runs: list, field: str = "seconds") -> float:
    return statistics.median(getattr(run, field) for run in runs)


def line(text: str, value: str, aim: str = "") -> None:
    print(f"  {text:<52}{value:>14}{('   (aim: ' + aim + ')') if aim else ''}", flush=True)


def overhead(batch: str, top: pathlib.Path, count: int, rounds: int, window: bool) -> None:
    folder = top / "overhead"
    files = make_samples(folder, count)
    bare, queue, shown = [], [], []
    display = Window(pathlib.Path(batch).parent / "zolt" / "zolt") if window else None
    for _ in range(rounds):
        bare.append(through_xargs(files))
        queue.append(through_queue(batch, files, folder))
        if display:
            shown.append(display.decode(files))
            remove_outputs(files)
    print(f"{count:,} small files, {JOBS} at a time, median of {rounds} interleaved rounds")
    line(f"xargs -P{JOBS} -n1 flac -d", f"{median(bare):.3f} s")
    line("zolt-batch", f"{median(queue):.3f} s")
    line("ratio", f"{median(queue) / median(bare):.3f}", "1.05")
    if display:
        line("zolt with its window open", f"{median(shown):.3f} s")
        line("ratio", f"{median(shown) / median(bare):.3f}", "1.15")
        line("memory, window idle", f"{display.idle:.1f} MiB", "90")
        line("more while working, at most", f"{max(run.mebibytes for run in shown) - display.idle:.1f} MiB", "15")
        display.close()


def growth(batch: str, top: pathlib.Path, many: int, rounds: int) -> None:
    few_folder, many_folder = top / "few", top / "many"
    few_files, many_files = make_samples(few_folder, 100), make_samples(many_folder, many)
    few, lots = [], []
    for _ in range(rounds):
        few += [through_queue(batch, few_files, few_folder) for _ in range(5)]
        lots.append(through_queue(batch, many_files, many_folder))
    at_few, at_many = median(few) / 100 * 1000, median(lots) / many * 1000
    print("milliseconds a task, and peak memory of zolt-batch")
    line("100 tasks", f"{at_few:.3f} ms")
    line(f"{many:,} tasks", f"{at_many:.3f} ms")
    line("ratio", f"{at_many / at_few:.3f}", "1.1")
    line("peak memory, 100 tasks", f"{median(few, 'mebibytes'):.1f} MiB")
    line(f"peak memory, {many:,} tasks", f"{median(lots, 'mebibytes'):.1f} MiB")


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default="build/release")
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--files", type=int, default=1000)
    parser.add_argument("--many", type=int, default=10000)
    parser.add_argument("--window", action="store_true")
    options = parser.parse_args()
    build = pathlib.Path(options.build).resolve()
    batch = str(build / "src" / "app" / "zolt-batch")
    top = pathlib.Path(tempfile.mkdtemp(prefix="zolt-bench-"))
    try:
        overhead(batch, top, options.files, options.rounds, options.window)
        growth(batch, top, options.many, max(1, options.rounds // 2))
        for bench in [build / "bench" / "queue" / name for name in ("queue_bench", "window_bench")]:
            if bench.exists():  # there is no window_bench where no window is built
                subprocess.run([str(bench)], check=True)
    finally:
        shutil.rmtree(top)


if __name__ == "__main__":
    main()
