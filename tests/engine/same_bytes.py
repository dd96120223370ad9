# SPDX-License-Identifier: GPL-3.0-or-later
"""The same input gives the same bytes: writes every output format twice and compares the results.

    same_bytes.py ENGINE SAMPLES DRAW kinds     what the engine writes itself
    same_bytes.py ENGINE SAMPLES DRAW office    what goes through LibreOffice

The first run has one processor, and so one thread; the second has all of them, and is disturbed by another run beside
it (not where LibreOffice writes, which takes long). Output folder, temporary folder and time of day differ. Zip packages are compared member by member, because each
member's time of writing stands beside it; no other date is let pass.

All drawn documents together make one long document (DRAW is the script that draws them), so that threads have work.
"""
import os
import subprocess
import sys
import zipfile

import core_support

KINDS = {
    "kinds": [[".txt"], [".html"], [".htm", "-htmlformat"], [".xml"], [".ps"], [".eps"],
              [".tif"], [".tiff", "-multipage"], [".tif", "-mono", "-compress", "4"], [".jpg"], [".png"], [".png", "-gray"],
              [".gif"], [".bmp", "-mono"], [".tga"], [".pnm"], [".ppm"], [".pgm"], [".pbm"]],
    "office": [[".docx"], [".docx", "-wordmode", "1"], [".docx", "-wordmode", "2"], [".docx", "-wordmode", "3"],
               [".docx", "-wordmode", "4"], [".doc"], [".rtf"], [".pptx"], [".ppt"], [".xlsx"], [".xls"]],
}
DRAWN_SLOWLY = {".ps", ".eps", ".tif", ".tiff", ".jpg", ".png", ".gif", ".bmp", ".tga", ".pnm", ".ppm", ".pgm", ".pbm"}
SOME_PAGES = ["-f", "30", "-l", "45", "-xres", "50"]  # enough for several threads
PACKAGES = {".docx", ".pptx", ".xlsx"}


def contents(path):
    """The contents to compare, as (name, bytes) pairs."""
    if path.suffix not in PACKAGES:
        return [("", path.read_bytes())]
    with zipfile.ZipFile(path) as package:
        return [(member.filename, package.read(member)) for member in package.infolist()]


def long_document(suite, draw):
    """Joins all drawn documents into one."""
    folder = suite.folder / "drawn"
    subprocess.run(["/usr/bin/python3", "-B", draw, str(folder)], check=True)
    path = suite.folder / "drawn.pdf"
    core_support.tool("qpdf", "--empty", "--static-id", "--pages", *map(str, sorted(folder.glob("*.pdf"))), "--", str(path))
    return path


def convert(suite, document, kind, folder, processors):
    """Starts a conversion of the document to a new folder, on the given processors (by default all); returns the process."""
    extension, options = kind[0], list(kind[1:])
    if document.stem == "drawn" and extension in DRAWN_SLOWLY:
        options += SOME_PAGES
    folder.mkdir(parents=True)
    temp = suite.temp / folder.name
    temp.mkdir(exist_ok=True)
    return subprocess.Popen(
        [suite.engine, *core_support.password(document), *options, "-call", str(document), str(folder / ("out" + extension))],
        stdin=subprocess.DEVNULL, env=dict(os.environ, TMPDIR=str(temp)),
        preexec_fn=lambda: processors and os.sched_setaffinity(0, processors))


def check(suite, document, number, kind, processors):
    name = " ".join([document.name, *kind])
    folders = [suite.folder / part / f"{document.stem}-{number}" for part in ("one", "a second, longer name")]
    at_once = folders[1:]
    if kind[0] in DRAWN_SLOWLY | {".txt", ".html", ".htm", ".xml"}:
        at_once.append(suite.folder / "beside" / f"{document.stem}-{number}")
    statuses = [convert(suite, document, kind, folders[0], set(sorted(processors)[:1])).wait(core_support.WAIT)]
    running = [convert(suite, document, kind, folder, processors) for folder in at_once]
    statuses += [process.wait(core_support.WAIT) for process in running]
    if not suite.check(not any(statuses), name, "ended with", statuses):
        return
    names = [sorted(path.name for path in folder.iterdir()) for folder in folders]
    if not suite.check(names[0] == names[1] and names[0], name, "wrote other files:", *names):
        return
    for each in names[0]:
        first, second = (contents(folder / each) for folder in folders)
        suite.check([member for member, _ in first] == [member for member, _ in second], name, "has other members")
        for (member, one), (_, other) in zip(first, second):
            at = next((i for i, (a, b) in enumerate(zip(one, other)) if a != b), min(len(one), len(other)))
            suite.check(one == other, name, each, member, f"differ at byte {at} of {len(one)} and {len(other)}:",
                        one[max(0, at - 40):at + 40], other[max(0, at - 40):at + 40])


def main():
    draw, what = sys.argv[3], sys.argv[4]
    suite = core_support.Suite()
    processors = os.sched_getaffinity(0) if hasattr(os, "sched_getaffinity") else set()
    if len(processors) < 2:
        print("not run: one thread against several (there is one processor, or the system does not tell)")
    samples = ("report", "pictures", "password") if what == "kinds" else ("report",)
    documents = [suite.samples / f"{name}.pdf" for name in samples]
    for document in documents + [long_document(suite, draw)]:
        for number, kind in enumerate(KINDS[what]):
            check(suite, document, number, kind, processors)
    for folder in suite.temp.iterdir():
        folder.rmdir()  # fails where something was left behind
    suite.end()


main()
