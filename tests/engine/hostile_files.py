# SPDX-License-Identifier: GPL-3.0-or-later
"""Files that ask for far more work than their size suggests: each converts or ends with the status that fits, one clear
line and nothing left behind, within the processor time that is allowed; pages that are honestly slow convert.

With "corpus" it takes the files of the folder in QUORRA_HOSTILE_CORPUS instead, in eight outputs each, and is skipped
without it.

    QUORRA_TIME_FACTOR  the share of the usual time allowance to try with (default 0.05 for all but a few runs): 1 tries
                        all files with the usual one, which takes long
"""
import concurrent.futures
import os
import pathlib
import resource
import subprocess
import sys
import tempfile

import core_support
import hostile_pdf

DONE, DAMAGED, PASSWORD, LIMIT = 0, 2, 3, 6
ALLOWED_SECONDS = 30  # of engine and helper together, at the usual allowance
READING_SECONDS = 20  # more for a scanned page whose text is recognised
SHARE = float(os.environ.get("QUORRA_TIME_FACTOR", "0.05"))
ROUNDING = 2  # the system counts whole seconds, for the engine and for its helper
GIVEN_UP = 60  # seconds of processor time after which the system ends a run that the engine does not end
OUTPUTS = ("txt", "html", "docx", "xlsx", "pptx", "png", "tiff", "ps")

# Name, function that makes it, outputs to test in addition to text and PNG.
HOSTILE = (
    ("flate-bomb", hostile_pdf.flate_bomb, ("docx",)),
    ("exponential-forms", hostile_pdf.exponential_forms, ("html", "xlsx", "pptx", "tiff", "ps")),
    ("painting-itself", hostile_pdf.painting_itself, ("ps",)),
    ("huge-image", hostile_pdf.huge_image, ("html", "docx")),
    ("huge-jbig2", hostile_pdf.huge_jbig2, ("ps",)),
    ("marked-content", hostile_pdf.marked_content, ("pptx",)),
    ("tiny-tiles", hostile_pdf.tiny_tiles, ("ps",)),
    ("many-words", hostile_pdf.many_words, ("xlsx",)),
    ("slow-pages", hostile_pdf.slow_pages, ("html", "ps")),
    ("many-slow-pages", hostile_pdf.many_slow_pages, ()),
)
HONEST = (("map", hostile_pdf.dense_map), ("scan", hostile_pdf.scan))


def processor_time(usage):
    return usage.ru_utime + usage.ru_stime


def limit_processor_time():
    resource.setrlimit(resource.RLIMIT_CPU, (GIVEN_UP, GIVEN_UP))


def run(suite, document, extension, factor):
    """(status, what was printed, seconds of processor time of engine and helper, names of the outputs)."""
    with tempfile.TemporaryDirectory(dir=suite.folder) as folder, tempfile.TemporaryFile() as stderr:
        output = pathlib.Path(folder) / f"out.{extension}"
        process = subprocess.Popen(
            [suite.engine, "-call", str(document), str(output)], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=stderr, preexec_fn=limit_processor_time,
            env=dict(os.environ, TMPDIR=str(suite.temp), QUORRA_TIME_FACTOR=str(factor)))
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        stderr.seek(0)
        names = sorted(os.listdir(folder))
        return process.returncode, stderr.read().decode(errors="replace"), processor_time(usage), names


def check(suite, name, extension, factor, result, statuses):
    status, printed, seconds, names = result
    label = f"{name} {extension} (factor {factor}):"
    print(f"{label} status {status}, {seconds:.1f} s, {printed.strip()}", flush=True)
    suite.check(status in statuses, label, result)
    allowed = ALLOWED_SECONDS + (READING_SECONDS if name == "scan" else 0)
    suite.check(seconds < allowed * factor + ROUNDING * (factor < 1), label, "took too long:", result)
    if status == DONE:
        suite.check(printed == "" and names, label, result)
        return
    good = printed.startswith("Qtminw: ") and printed.endswith("\n") and printed.count("\n") == 1
    suite.check(good and len(printed) > len("Qtminw: x"), label, "printed", repr(printed))
    # There may be complete pages, but no incomplete ones.
    suite.check(not any(each.startswith(".") for each in names), label, "left", names)
    suite.check(not names or extension in ("png", "tiff"), label, "left", names)


def run_all(suite, runs, statuses):
    """Runs are tuples of name, path, extension and factor."""
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        results = pool.map(lambda each: run(suite, each[1], each[2], each[3]), runs)
        for (name, _, extension, factor), result in zip(runs, results):
            check(suite, name, extension, factor, result, statuses)


def made(suite):
    runs = []
    for name, make, further in HOSTILE:
        path = suite.folder / f"{name}.pdf"
        path.write_bytes(make())
        runs += [(name, path, extension, SHARE) for extension in ("txt", "png", *further)]
    # With the normal limits.
    forms = suite.folder / "exponential-forms.pdf"
    runs += [("exponential-forms", forms, "txt", 1), ("slow-pages", suite.folder / "slow-pages.pdf", "png", 1)]
    run_all(suite, runs, (DONE, LIMIT))
    status, printed, _, _ = run(suite, forms, "txt", 0.01)
    suite.check(status == LIMIT and "page 1 " in printed, "the page is not named:", status, printed)


def honest(suite):
    for name, make in HONEST:
        path = suite.folder / f"{name}.pdf"
        path.write_bytes(make())
        run_all(suite, [(name, path, extension, 1) for extension in OUTPUTS], (DONE,))
        path.unlink()


def collected(suite):
    given = os.environ.get("QUORRA_HOSTILE_CORPUS")
    if not given:
        print("QUORRA_HOSTILE_CORPUS names no folder: not run")
        sys.exit(core_support.SKIPPED)
    documents = sorted(pathlib.Path(given).glob("*.pdf"))
    suite.check(documents, "no documents in", given)
    runs = [(path.name, path, extension, SHARE) for path in documents for extension in OUTPUTS]
    run_all(suite, runs, (DONE, DAMAGED, PASSWORD, LIMIT))


def main():
    suite = core_support.Suite()
    if suite.corpus:
        collected(suite)
    else:
        made(suite)
        honest(suite)
    suite.end()


main()
