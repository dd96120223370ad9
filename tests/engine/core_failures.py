# SPDX-License-Identifier: GPL-3.0-or-later
"""Exit statuses and the one line of each kind of failure; odd file names; nothing left behind by a failure; passwords
not shown to other users; no network."""
import os
import pathlib
import signal
import subprocess
import time

import core_support
from core_support import page_count, tool

USAGE, OPEN, PASSWORD, WRITE, LIMIT = 1, 2, 3, 5, 6


def fails(suite, status, *arguments):
    result = suite.run(*arguments)
    suite.check(result.status == status, arguments, "gave", result, "not", status)
    good = result.line.startswith("Qtminw: ") or result.line.startswith("usage: ")
    suite.check(result.line.count("\n") == 1 and result.line.endswith("\n") and good, arguments, "printed", result.line)
    return result


def statuses(suite):
    folder = suite.fresh("statuses")
    report = str(suite.samples / "report.pdf")
    locked = str(suite.samples / "password.pdf")
    broken = folder / "broken.pdf"
    broken.write_bytes(b"%PDF-1.4\nnothing here\n")
    empty = folder / "empty.pdf"
    empty.touch()
    out = str(folder / "out")
    rows = [
        (USAGE, []), (USAGE, ["-call", report]), (USAGE, ["-nonsense", "-call", report, out + ".txt"]),
        (USAGE, ["-call", report, out]), (USAGE, ["-call", report, out + ".pdf"]),
        (USAGE, ["-f", "5", "-call", report, out + ".txt"]),
        (USAGE, ["-f", "3", "-l", "2", "-call", report, out + ".png"]),
        (OPEN, ["-call", str(folder / "none.pdf"), out + ".txt"]), (OPEN, ["-call", str(broken), out + ".txt"]),
        (OPEN, ["-call", str(empty), out + ".png"]), (OPEN, ["-call", str(folder), out + ".ps"]),
        (OPEN, ["-call", "/dev/null", out + ".ps"]), (OPEN, ["-call", "", out + ".txt"]),
        (PASSWORD, ["-call", locked, out + ".txt"]), (PASSWORD, ["-upw", "wrong", "-call", locked, out + ".png"]),
        (LIMIT, ["-width", "30000", "-call", report, out + ".png"]),
        (LIMIT, ["-xres", "99999", "-call", report, out + ".tif"]),
    ]
    for extension in ("txt", "png", "tif", "ps", "eps"):
        rows.append((WRITE, ["-l", "1", "-call", report, str(folder / "none" / f"out.{extension}")]))
        (folder / f"taken.{extension}").mkdir()
        rows.append((WRITE, ["-l", "1", "-call", report, str(folder / f"taken.{extension}")]))
    before = sorted(folder.iterdir())
    for status, arguments in rows:
        fails(suite, status, *arguments)
    suite.check(sorted(folder.iterdir()) == before, "failures left", set(folder.iterdir()) - set(before))


def passwords(suite):
    locked = str(suite.samples / "password.pdf")
    out = suite.folder / "locked.txt"
    for options in (["-upw", "quorra"], ["-opw", "quorra"], ["-upw", "marbeck"], ["-opw", "marbeck"],
                    ["-upw", "wrong", "-opw", "quorra"], ["-upw", "marbeck", "-opw", "wrong"]):
        result = suite.run(*options, "-call", locked, str(out))
        suite.check(result.status == 0 and out.stat().st_size > 100, options, result)
        out.unlink(missing_ok=True)


def names(suite):
    report = suite.samples / "report.pdf"
    folder = os.fsencode(str(suite.fresh("names")))
    for name in (b"-call", b"-upw x", b"with space", b'quo"te', b"new\nline", b"caf\xe9", b"\xff\xfe", b"a.b.c", b"x" * 240):
        source = os.path.join(folder, name + b".pdf")
        target = os.path.join(folder, name + b".txt")
        os.link(report, source) if os.stat(report).st_dev == os.stat(folder).st_dev else copy(report, source)
        result = suite.run("-l", "1", b"-call", source, target)
        suite.check(result.status == 0 and os.path.getsize(target) > 100, name, result)
    result = subprocess.run([suite.engine, "-l", "1", "-call", "-call.pdf", "-out.png"], cwd=folder, check=False)
    suite.check(result.returncode == 0 and os.path.exists(os.path.join(folder, b"-out.png")), "relative names")
    left = [each for each in os.listdir(folder) if each.startswith(b".")]
    suite.check(not left, "left:", left)


def copy(source, target):
    with open(target, "wb") as file:
        file.write(pathlib.Path(source).read_bytes())


def naming(suite):
    report = suite.samples / "report.pdf"
    pages = page_count(report)
    rows = (
        ("png", [], [f"o{n:04}.png" for n in range(1, pages + 1)]),
        ("eps", ["-f", "2"], [f"o{n:04}.eps" for n in range(1, pages)]),
        ("GIF", ["-f", "3", "-l", "3"], ["o.GIF"]),
        ("jpg", ["-tempname", "t%02d"], [f"t{n:02}.jpg" for n in range(1, pages + 1)]),
        ("bmp", ["-tempname", "t", "-l", "1"], ["o.bmp"]),
        ("bmp", ["-tempname", "t", "-tempname1", "-l", "1"], ["t.bmp"]),
        ("tif", ["-tempname", "t%d", "-tempname1", "-multipage"], ["t1.tif"]),
        ("tif", ["-tempname", "t%d", "-multipage"], ["o.tif"]),
        ("png", ["-tempname", "%s%n/../%n"], [f"%n{n:04}.png" for n in range(1, pages + 1)]),
        ("txt", ["-tempname", "t%d", "-tempname1"], ["o.txt"]),
        ("ps", ["-tempname", "t%d", "-tempname1"], ["o.ps"]),
    )
    for number, (extension, options, expected) in enumerate(rows):
        folder = suite.fresh(f"naming{number}")
        suite.convert(report, folder / f"o.{extension}", "-xres", "30", *options)
        found = sorted(each.name for each in folder.iterdir())
        suite.check(found == sorted(expected), extension, options, found)


def sweeping(suite):
    folder = suite.fresh("sweeping")
    ended = subprocess.Popen(["true"])
    ended.wait()
    dead = folder / f".qtminw-{ended.pid}-1.part"
    alive = folder / f".qtminw-{os.getpid()}-1.part"
    others = folder / ".qtminw-notes.part"
    for path in (dead, alive, others):
        path.touch()
    (folder / "out.txt").write_text("what stood there before")
    suite.convert(suite.samples / "report.pdf", folder / "out.txt")
    left = sorted(path.name for path in folder.iterdir())
    suite.check(left == sorted((alive.name, others.name, "out.txt")), "after sweeping:", left)
    suite.check((folder / "out.txt").stat().st_size > 100, "the file was not replaced")


def hidden_passwords(suite):
    """A FIFO as input keeps the engine waiting while its arguments are inspected."""
    fifo = suite.folder / "fifo.pdf"
    os.mkfifo(fifo)
    process = subprocess.Popen([suite.engine, "-upw", "s3cret", "-opw", "s3cret", "-call", str(fifo), "x.txt"],
                               stderr=subprocess.DEVNULL)
    try:
        deadline = time.monotonic() + 60
        shown = b"s3cret"
        # Nothing is shown yet while the program is being loaded.
        while (b"s3cret" in shown or b"fifo.pdf" not in shown) and time.monotonic() < deadline:
            shown = pathlib.Path(f"/proc/{process.pid}/cmdline").read_bytes()
        suite.check(b"s3cret" not in shown and b"fifo.pdf" in shown, "arguments:", shown)
    finally:
        process.send_signal(signal.SIGKILL)
        process.wait()


def hostile(suite):
    """Only with the corpus: a decompression bomb must be stopped."""
    folder = pathlib.Path(os.environ.get("QUORRA_PDF_CORPUS", "/nowhere"))
    bomb = folder / "bomb_giant.pdf"
    if bomb.exists():
        for extension in ("txt", "png", "ps"):
            result = suite.run("-call", str(bomb), str(suite.folder / f"bomb.{extension}"))
            suite.check(result.status in (0, LIMIT) and result.megabytes < 2100, extension, result)
            print("bomb", extension, result)
    if (folder / "poppler-85140-0.pdf").exists():
        fails(suite, OPEN, "-call", str(folder / "poppler-85140-0.pdf"), str(suite.folder / "x.txt"))


def closed_streams(suite):
    out = suite.folder / "closed.png"
    command = 'exec "$0" -l 1 -call "$1" "$2" <&- >&- 2>&-'
    done = subprocess.run(["sh", "-c", command, suite.engine, str(suite.samples / "report.pdf"), str(out)], check=False)
    suite.check(done.returncode == 0 and b"PNG image" in tool("file", "-b", str(out)), "closed streams")


def information(suite):
    for option, expected in (("--help", "Usage: Qtminw "), ("--version", "Qtminw ")):
        done = subprocess.run([suite.engine, option], capture_output=True, text=True, timeout=core_support.WAIT, check=False)
        suite.check(done.returncode == 0 and done.stdout.startswith(expected) and done.stdout.endswith("\n")
                    and done.stderr == "", option, done)
        with open("/dev/full", "w", encoding="utf-8") as full:
            status = subprocess.run([suite.engine, option], stdout=full, timeout=core_support.WAIT, check=False).returncode
        suite.check(status == WRITE, option, "on a full device ended with status", status)
        fails(suite, USAGE, option, option)


def main():
    suite = core_support.Suite()
    if suite.corpus:
        suite.documents()
        hostile(suite)
    else:
        for part in (information, statuses, passwords, names, naming, sweeping, hidden_passwords, closed_streams):
            part(suite)
    suite.end()


main()
