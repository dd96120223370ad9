# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures the engine against the PDF library's own command-line tools on the same files in one run and prints a table.

    engine_benchmark.py ENGINE FOLDER...     every readable *.pdf of the folders

Times are wall seconds of whole processes, the best of several runs per file, summed over the files. The exit status is 1
when a target is missed.
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import time

PASSWORDS = {
    "password.pdf": "quorra",
    "libreoffice-writer-password.pdf": "openpassword",
    "password-example.pdf": "test",
}
NOT_MEASURED = {"bomb_giant.pdf", "poppler-85140-0.pdf"}  # made to harm; cannot be opened
MOST_MEGABYTES = 150
LONG = 1.0  # seconds; files that take longer are run fewer times
RUNS_SHORT, RUNS_LONG = 5, 2
RUNS_GUARDS = 100
MOST_GUARD_MILLISECONDS = 2


def run(command, folder):
    """(seconds, megabytes) of one process; its output files are removed."""
    begin = time.perf_counter()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    seconds = time.perf_counter() - begin
    process.returncode = os.waitstatus_to_exitcode(status)
    size = 0
    for path in folder.iterdir():
        size += path.stat().st_size
        path.unlink()
    return seconds, usage.ru_maxrss / 1024, process.returncode, size


def kinds(engine, document, folder):
    """Name, our command, the peer's command."""
    known = PASSWORDS.get(document.name)
    password = ["-upw", known] if known else []

    def ours(extension):
        return [engine, *password, "-call", str(document), str(folder / f"out.{extension}")]

    peer = str(folder / "peer")
    return (
        ("text", ours("txt"), ["pdftotext", *password, str(document), peer]),
        ("PNG", ours("png"), ["pdftoppm", "-png", "-r", "150", *password, str(document), peer]),
        ("PostScript", ours("ps"), ["pdftops", *password, str(document), peer]),
    )


def measure(engine, documents, folder):
    sums = {}
    for document in documents:
        for name, ours, peer in kinds(engine, document, folder):
            best = None
            for attempt in range(RUNS_SHORT):
                pair = (run(ours, folder), run(peer, folder))
                if pair[0][2] != 0:
                    sys.exit(f"{ours} ended with {pair[0][2]}")
                best = pair if best is None else tuple(min(a, b, key=lambda r: r[0]) for a, b in zip(best, pair))
                if max(pair[0][0], pair[1][0]) > LONG and attempt + 1 >= RUNS_LONG:
                    break
            total = sums.setdefault(name, {"ours": 0.0, "peer": 0.0, "megabytes": (0, ""), "our bytes": 0, "peer bytes": 0})
            total["ours"] += best[0][0]
            total["peer"] += best[1][0]
            total["our bytes"] += best[0][3]
            total["peer bytes"] += best[1][3]
            total["megabytes"] = max(total["megabytes"], (best[0][1], document.name))
        print(f"  {document.name}", file=sys.stderr)
    return sums


def processor_milliseconds(engine, option):
    process = subprocess.Popen([engine, option], stdout=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    return 1000 * (usage.ru_utime + usage.ru_stime)


def guards(engine):
    """A row with what the guards cost a run: --version puts them on, --help does not."""
    least = {"--version": float("inf"), "--help": float("inf")}
    for _ in range(RUNS_GUARDS):
        for option, so_far in least.items():
            least[option] = min(so_far, processor_milliseconds(engine, option))
    cost = least["--version"] - least["--help"]
    good = cost <= MOST_GUARD_MILLISECONDS
    return ("guards, processor time", f"{cost:.1f} ms", "-", "-", f"<= {MOST_GUARD_MILLISECONDS} ms",
            "met" if good else "MISSED"), good


def table(sums):
    rows = []
    good = True
    for name, peer, limit in (("text", "pdftotext", 1.3), ("PNG", "pdftoppm -png", 0.25), ("PostScript", "pdftops", 1.2)):
        total = sums[name]
        ratio = total["ours"] / total["peer"]
        good &= ratio <= limit
        rows.append((f"{name}, time", f"{total['ours']:.2f} s", f"{total['peer']:.2f} s ({peer})", f"{ratio:.2f}",
                     f"<= {limit}", "met" if ratio <= limit else "MISSED"))
    total = sums["PNG"]
    rows.append(("PNG, size", f"{total['our bytes'] / 1e6:.1f} MB", f"{total['peer bytes'] / 1e6:.1f} MB (pdftoppm -png)",
                 f"{total['our bytes'] / total['peer bytes']:.2f}", "-", ""))
    for name, total in sums.items():
        megabytes, where = total["megabytes"]
        good &= megabytes <= MOST_MEGABYTES
        rows.append((f"{name}, largest memory", f"{megabytes:.0f} MB", where, "-", f"<= {MOST_MEGABYTES} MB",
                     "met" if megabytes <= MOST_MEGABYTES else "MISSED"))
    return rows, good


def main():
    engine = os.path.abspath(sys.argv[1])
    documents = [each for given in sys.argv[2:] for each in sorted(pathlib.Path(given).glob("*.pdf"))
                 if each.name not in NOT_MEASURED]
    with tempfile.TemporaryDirectory(prefix="quorra-benchmark-") as name:
        folder = pathlib.Path(name)
        sums = measure(engine, documents, folder)
    rows, good = table(sums)
    row, cheap = guards(engine)
    rows.append(row)
    good &= cheap
    print(f"{len(documents)} files")
    heads = ("figure", "ours", "peer", "ratio", "target", "")
    widths = [max(len(row[i]) for row in (heads, *rows)) for i in range(len(heads))]
    for row in (heads, *rows):
        print("  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip())
    sys.exit(0 if good else 1)


if __name__ == "__main__":
    main()
