# SPDX-License-Identifier: GPL-3.0-or-later
"""Progress of long work is shown on a terminal, cleared at the end, and shown nowhere else."""
import os
import pty
import subprocess

import core_support

CLEAR = "\r\x1b[K"
HELPER = 7  # exit status if LibreOffice fails
# Pixels per inch at which the pages of a sample take seconds.
SLOW = "1200"


def run_on_terminal(suite, *arguments, kind="xterm", **environment):
    """Returns the exit status and what a terminal of this kind received."""
    master, slave = pty.openpty()
    process = subprocess.Popen([suite.engine, *arguments], stdin=slave, stdout=slave, stderr=slave,
                               env={**os.environ, "TERM": kind, **environment})
    os.close(slave)
    received = b""
    while True:
        try:
            part = os.read(master, 4096)
        except OSError:  # the engine has ended: a terminal without processes cannot be read
            break
        if not part:
            break
        received += part
    os.close(master)
    return process.wait(), received.decode()


def shows_pages_and_clears_them(suite):
    folder = suite.fresh("pages")
    arguments = ("-xres", SLOW, "-call", str(suite.samples / "report.pdf"), str(folder / "out.png"))
    status, shown = run_on_terminal(suite, *arguments)
    suite.check(status == 0, "status", status)
    count = len(list(folder.iterdir()))
    lines = shown.split(CLEAR)
    suite.check(len(lines) > 2 and lines[0] == "" and lines[-1] == "", "received", repr(shown))
    pages = {f"Drawing page {page} of {count}" for page in range(1, count + 1)}
    suite.check(set(lines[1:-1]) <= pages, "received", repr(shown), "for", count, "pages")

    status, shown = run_on_terminal(suite, *arguments, kind="dumb")
    suite.check((status, shown) == (0, ""), "a terminal that cannot clear a line received", repr(shown))
    result = suite.run(*arguments)
    suite.check((result.status, result.line) == (0, ""), "a pipe received", result)


def clears_before_an_error(suite):
    folder = suite.fresh("error")
    program = folder / "soffice.bin"
    program.write_text("#!/bin/sh\nexit 1\n")
    program.chmod(0o755)
    arguments = ("-call", str(suite.samples / "report.pdf"), str(folder / "out.doc"))
    status, shown = run_on_terminal(suite, *arguments, QUORRA_SOFFICE=str(program))
    suite.check(status == HELPER, "status", status, repr(shown))
    before, _, line = shown.rpartition(CLEAR)
    suite.check(before.endswith("Exporting with LibreOffice"), "received", repr(shown))
    suite.check(line.startswith("Qtminw: LibreOffice") and line.endswith("\r\n"), "received", repr(shown))


def main():
    suite = core_support.Suite()
    shows_pages_and_clears_them(suite)
    clears_before_an_error(suite)
    suite.end()


main()
