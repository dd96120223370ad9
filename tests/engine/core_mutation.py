# SPDX-License-Identifier: GPL-3.0-or-later
"""Feeds the engine damaged copies of the samples for a time and expects an ordinary end each time: an exit status, never
a signal. Built with the sanitizers it also looks for their reports: one that arises in the engine's own code is a
failure; one in the PDF library is counted and shown.

    QUORRA_FUZZ_SECONDS  how long (default 60)
    QUORRA_SEED          repeats a run
"""
import concurrent.futures
import os
import random
import re
import subprocess
import tempfile
import time

import core_support

EXTENSIONS = ("txt", "html", "xml", "png", "tif", "gif", "jpg", "bmp", "ps", "eps")
LONGEST = 120  # seconds for one file, under the sanitizers and on a busy machine


def mutated(data, rng):
    data = bytearray(data)
    for _ in range(rng.randint(1, 4)):
        kind = rng.randrange(5)
        at = rng.randrange(len(data))
        size = rng.randint(1, 64)
        if kind == 0:
            for _ in range(rng.randint(1, 40)):
                data[rng.randrange(len(data))] ^= 1 << rng.randrange(8)
        elif kind == 1:
            del data[max(10, at):]
        elif kind == 2:
            data[at:at + size] = rng.randbytes(size)
        elif kind == 3:
            data[at:at] = data[rng.randrange(len(data)):][:size]
        else:
            digits = [match.span() for match in re.finditer(rb"\d+", bytes(data[:20000]))]
            if digits:
                begin, end = rng.choice(digits)
                data[begin:end] = str(rng.choice((0, -1, 7, 65536, 2147483647, 99999999999))).encode()
    return bytes(data)


def report(text):
    """"own", "library" or None."""
    if "Sanitizer" not in text and "runtime error:" not in text:
        return None
    error = re.search(r"(\S+): runtime error:", text)
    if error:
        return "own" if "/engine/" in error.group(1) else "library"
    if "LeakSanitizer" in text or "detected memory leaks" in text:
        return "own" if re.search(r"#[01] .* /\S*/engine/", text) else "library"
    # The topmost stack frames outside the sanitizer.
    frames = [line for line in re.findall(r"^\s+#\d+ .*$", text, re.M) if "sanitizer" not in line and "libasan" not in line]
    return "own" if frames and "/engine/" in frames[0] else "library"


def one(suite, seed):
    rng = random.Random(seed)
    source = rng.choice(sorted(suite.samples.glob("*.pdf")))
    extension = rng.choice(EXTENSIONS)
    with tempfile.TemporaryDirectory(dir=suite.folder) as folder:
        path = os.path.join(folder, "in.pdf")
        with open(path, "wb") as file:
            file.write(mutated(source.read_bytes(), rng))
        command = [suite.engine, *core_support.password(source), "-xres", "40", "-l", "2", "-call", path,
                   os.path.join(folder, f"out.{extension}")]
        try:
            done = subprocess.run(command, capture_output=True, timeout=LONGEST, check=False)
        except subprocess.TimeoutExpired:
            return seed, "endless", f"{source.name} {extension}"
        kind = report(done.stderr.decode(errors="replace"))
        if kind:
            return seed, kind, done.stderr.decode(errors="replace")[-3000:]
        if not 0 <= done.returncode <= 7:
            return seed, "signal", f"{source.name} {extension} ended with {done.returncode}"
        return seed, done.returncode, ""


def main():
    suite = core_support.Suite()
    seconds = float(os.environ.get("QUORRA_FUZZ_SECONDS", "60"))
    seed = int(os.environ.get("QUORRA_SEED", time.time_ns() % 1_000_000_000))
    print("seed", seed, flush=True)
    counts = {}
    deadline = time.monotonic() + seconds
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        while time.monotonic() < deadline:
            for number, kind, text in pool.map(lambda n: one(suite, n), range(seed, seed + 8)):
                counts[kind] = counts.get(kind, 0) + 1
                suite.check(kind not in ("own", "signal", "endless"), f"QUORRA_SEED={number}", kind, text)
                if kind == "library":
                    print("in the library:", text[:1500])
            seed += 8
    print("runs by exit status or kind:", counts)
    suite.end()


main()
