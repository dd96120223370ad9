# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures how long documents take as HTML, Word, slides and sheets, and the engine's own memory meanwhile.

    office_benchmark.py ENGINE FOLDER     FOLDER holds the long documents named below

Times are wall seconds of whole processes, LibreOffice's included, the best of several runs. Memory is the engine's
alone: measured with a LibreOffice that ends at once. Beside the times stands what the same LibreOffice needs to start
and convert one line of text with an ordinary new profile. The exit status is 1 when a target is missed.
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import time

RUNS = 3
MOST_MEGABYTES = 200
HTML = ("tracemonkey", "federal-register-2020-17221", "GeoTopo-komprimiert", "developers-reference-ja")
OFFICE = ("tracemonkey", "federal-register-2020-17221", "schools")
KINDS = [("HTML", "html", [], HTML, 1.0)] + [
    ("%s %s" % (name, extension), extension, options, OFFICE, 3.0)
    for name, extension, options in (
        ("Word", "docx", []), ("Word boxes", "docx", ["-wordmode", "1"]), ("Word exact", "docx", ["-wordmode", "2"]),
        ("Word no boxes", "docx", ["-wordmode", "3"]), ("Word continuous", "docx", ["-wordmode", "4"]),
        ("Word", "doc", []), ("Word", "rtf", []), ("slides", "pptx", []), ("slides", "ppt", []),
        ("sheets", "xlsx", []), ("sheets", "xls", []))]


def timed(command, environment=None):
    """(seconds, megabytes, exit status)"""
    begin = time.perf_counter()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                               env=dict(os.environ, **(environment or {})))
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    return time.perf_counter() - begin, usage.ru_maxrss / 1024, process.returncode


def floor(folder):
    """Seconds that LibreOffice needs for one line of text with a new profile of its own making."""
    source = folder / "line.txt"
    source.write_text("one line\n")
    return timed(["soffice", "-env:UserInstallation=file://%s" % (folder / "profile"), "--headless", "--convert-to",
                  "docx", "--outdir", str(folder), str(source)])[0]


def main():
    engine = os.path.abspath(sys.argv[1])
    corpus = pathlib.Path(sys.argv[2])
    good = True
    with tempfile.TemporaryDirectory(prefix="quorra-benchmark-") as name:
        folder = pathlib.Path(name)
        print("LibreOffice, one line of text, new profile: %.2f s" % floor(folder))
        print("%-22s %-28s %7s %7s %7s" % ("kind", "file", "seconds", "target", "MB"))
        for title, extension, options, files, most in KINDS:
            for file in files:
                document = corpus / (file + ".pdf")
                if not document.exists():
                    print("%-22s %-28s is not there: left out" % (title, file))
                    continue
                command = [engine, *options, "-call", str(document), str(folder / ("out." + extension))]
                runs = [timed(command) for _ in range(RUNS)]
                if any(status for _, _, status in runs):
                    sys.exit("%s ended with %s" % (command, runs[-1][2]))
                seconds = min(run[0] for run in runs)
                megabytes = timed(command, {"QUORRA_SOFFICE": "/bin/false"})[1]
                met = seconds <= most and megabytes <= MOST_MEGABYTES
                good &= met
                print("%-22s %-28s %7.2f %7.1f %7.0f  %s" % (title, file, seconds, most, megabytes,
                                                              "met" if met else "MISSED"), flush=True)
    sys.exit(0 if good else 1)


main()
