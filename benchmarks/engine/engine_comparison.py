# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures two builds of the engine on the same documents in one run and prints the ratios of time and memory.

    engine_comparison.py ENGINE OTHER_ENGINE FOLDER...     every readable *.pdf of the folders

The two engines take turns on each document, so that both meet the same state of the machine. Times are the least of
several runs per document, summed over the documents; memory is the highest peak of the process, LibreOffice left out.
Office formats are measured on every fourth document up to a size, because LibreOffice takes most of their time. The exit status
is 1 when the engine needs more than MOST of the other one's wall time, processor time or memory for any format.
"""
import os
import pathlib
import sys
import tempfile

import engine_benchmark

FORMATS = ("txt", "html", "xml", "png", "ps")
OFFICE_FORMATS = ("docx", "xlsx", "pptx")
OFFICE_MOST_BYTES = 300_000
MOST = 1.05
QUICK = 0.3  # seconds; documents that take longer are run fewer times
RUNS_QUICK, RUNS_SLOW = 7, 2


def measure(engines, document, extension, folder):
    """The least wall seconds, least processor seconds and highest megabytes of each engine."""
    known = engine_benchmark.PASSWORDS.get(document.name)
    password = ["-upw", known] if known else []
    best = [[float("inf"), float("inf"), 0.0] for _ in engines]
    runs, done = RUNS_SLOW, 0
    while done < runs:
        for figures, engine in zip(best, engines):
            before = os.times()
            command = [engine, *password, "-call", str(document), str(folder / f"out.{extension}")]
            seconds, megabytes, _, _ = engine_benchmark.run(command, folder)
            after = os.times()
            processor = after.children_user + after.children_system - before.children_user - before.children_system
            figures[0] = min(figures[0], seconds)
            figures[1] = min(figures[1], processor)
            figures[2] = max(figures[2], megabytes)
        done += 1
        if done == 1 and best[0][0] < QUICK and extension not in OFFICE_FORMATS:
            runs = RUNS_QUICK
    return best


def main():
    if len(sys.argv) < 4:
        sys.exit(__doc__)
    engines = sys.argv[1:3]
    documents = [path for folder in sys.argv[3:] for path in sorted(pathlib.Path(folder).glob("*.pdf"))
                 if path.name not in engine_benchmark.NOT_MEASURED]
    missed = False
    print("| Format | Documents | Wall time | Ratio | Processor time | Ratio | Peak memory | Ratio |")
    print("|---|---|---|---|---|---|---|---|")
    for extension in FORMATS + OFFICE_FORMATS:
        office = extension in OFFICE_FORMATS
        chosen = documents
        if office:
            chosen = [d for d in documents if d.stat().st_size <= OFFICE_MOST_BYTES][::4]
        sums = [[0.0, 0.0, 0.0] for _ in engines]
        with tempfile.TemporaryDirectory() as folder:
            for document in chosen:
                for total, figures in zip(sums, measure(engines, document, extension, pathlib.Path(folder))):
                    total[0] += figures[0]
                    total[1] += figures[1]
                    total[2] = max(total[2], figures[2])
        ratios = [ours / other for ours, other in zip(*sums)]
        missed |= max(ratios) > MOST
        (wall, processor, memory), (other_wall, other_processor, other_memory) = sums
        print(f"| {extension} | {len(chosen)} | {wall:.2f} s : {other_wall:.2f} s | {ratios[0]:.2f} x "
              f"| {processor:.2f} s : {other_processor:.2f} s | {ratios[1]:.2f} x "
              f"| {memory:.0f} MB : {other_memory:.0f} MB | {ratios[2]:.2f} x |", flush=True)
    sys.exit(1 if missed else 0)


if __name__ == "__main__":
    main()
