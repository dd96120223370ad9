# SPDX-License-Identifier: GPL-3.0-or-later
"""Kills the engine at random moments, many times for each kind of output: files with a final name are complete, no
process outlives the engine, and the next run leaves no trace of the killed ones.

    core_kill.py ENGINE SAMPLES [plain|office]
"""
import os
import pathlib
import random
import subprocess
import time
import zipfile
import sys

import core_support

RUNS = 100
# Kind: extension and options. The document has four pages.
PLAIN = {
    "text": ("txt", []), "html": ("html", []), "xml": ("xml", []), "pages": ("png", ["-xres", "100"]),
    "multipage": ("tif", ["-multipage", "-xres", "100"]), "jpeg": ("jpg", ["-xres", "60"]), "gif": ("gif", ["-xres", "60"]),
    "postscript": ("ps", []), "eps": ("eps", []),
}
OFFICE = {"word": ("docx", []), "slides": ("pptx", []), "sheets": ("xlsx", [])}
OFFICE_RUNS = 34  # each; a run takes a second or more


def members(session):
    """Running processes of the session."""
    found = []
    for number in filter(str.isdigit, os.listdir("/proc")):
        try:
            fields = pathlib.Path("/proc", number, "stat").read_text().rsplit(")", 1)[1].split()
        except (OSError, IndexError):
            continue  # it ended meanwhile
        if int(fields[3]) == session and fields[0] not in "ZX":
            found.append(number)
    return found


def gone(session):
    deadline = time.monotonic() + 30
    while members(session) and time.monotonic() < deadline:
        time.sleep(0.01)
    return not members(session)


def start(suite, folder, extension, options, document):
    return subprocess.Popen([suite.engine, *options, "-call", str(document), str(folder / f"o.{extension}")],
                            start_new_session=True, stderr=subprocess.DEVNULL,
                            env=dict(os.environ, TMPDIR=str(suite.temp)))


def whole(path, reference):
    if zipfile.is_zipfile(reference):
        return zipfile.is_zipfile(path) and zipfile.ZipFile(path).testzip() is None
    return path.read_bytes() == reference.read_bytes()


def kill_runs(suite, kind, extension, options, runs, document):
    reference = suite.fresh(f"{kind}-whole")
    begin = time.monotonic()
    process = start(suite, reference, extension, options, document)
    status = process.wait(timeout=core_support.WAIT)
    length = time.monotonic() - begin
    if status == 7:
        print(kind, "is not available: left out")
        return
    suite.check(status == 0, kind, "ended with", status)
    folder = suite.fresh(f"{kind}-killed")
    unfinished = 0
    for run in range(runs):
        process = start(suite, folder, extension, options, document)
        time.sleep(random.uniform(0, length))  # the moment of the kill, not a wait for something
        process.kill()
        unfinished += process.wait(timeout=core_support.WAIT) != 0
        suite.check(gone(process.pid), kind, "run", run, "left processes", members(process.pid))
        for path in folder.iterdir():
            if path.name.startswith("."):
                continue
            suite.check(whole(path, reference / path.name), kind, "run", run, "left a part of", path.name)
            path.unlink()
    suite.check(start(suite, folder, extension, options, document).wait(timeout=core_support.WAIT) == 0, kind, "last run")
    suite.check(sorted(p.name for p in folder.iterdir()) == sorted(p.name for p in reference.iterdir()),
                kind, "leaves", list(folder.iterdir()))
    print(f"{kind}: {runs} runs of {length:.2f} s, {unfinished} of them killed before their end", flush=True)


def main():
    suite = core_support.Suite()
    seed = int(os.environ.get("QUORRA_SEED", time.time_ns() % 1_000_000))
    random.seed(seed)
    print("seed", seed)
    office = sys.argv[3:] == ["office"]
    for kind, (extension, options) in (OFFICE if office else PLAIN).items():
        kill_runs(suite, kind, extension, options, OFFICE_RUNS if office else RUNS, suite.samples / "report.pdf")
    suite.end()


main()
