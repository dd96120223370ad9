#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares what the engine finds in the samples and the drawn documents with what was approved.

    approved_dumps.py MODEL_DUMP              shows each difference; the exit status is 1 where there is one
    approved_dumps.py MODEL_DUMP --approve    writes what is found today into the folder `approved`
"""
import concurrent.futures
import difflib
import os
import subprocess
import sys
import tempfile
from pathlib import Path

sys.dont_write_bytecode = True
HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))

import draw  # noqa: E402

APPROVED = HERE / "approved"
SAMPLES = HERE.parents[2] / "samples"
PASSWORDS = {"password": "quorra"}
LIMIT = 120  # seconds for one document


def dump(program, document):
    """What the engine finds in the document; a failure is a text like any other."""
    password = PASSWORDS.get(document.stem)
    done = subprocess.run([program, str(document)] + (["-upw", password] if password else []), stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=LIMIT, check=False)
    failure = f"exit status {done.returncode}: {done.stderr.decode()}" if done.returncode or done.stderr else ""
    return done.stdout.decode() + failure


def found_today(program, folder):
    """The dumps of all documents by their names; draws into the folder."""
    draw.draw_all(folder)
    documents = sorted(folder.glob("*.pdf")) + sorted(SAMPLES.glob("*.pdf"))
    names = [document.stem for document in documents]
    twice = {name for name in names if names.count(name) > 1}
    if twice:
        sys.exit(f"two documents have the same name: {', '.join(sorted(twice))}")
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return dict(zip(names, pool.map(lambda document: dump(program, document), documents)))


def approved():
    return {path.stem: path.read_text(encoding="utf-8") for path in APPROVED.glob("*.txt")}


def approve(found):
    before = approved()
    for name, text in found.items():
        if before.get(name) != text:
            print("changed:" if name in before else "new:", name)
            (APPROVED / f"{name}.txt").write_text(text, encoding="utf-8")
    for name in sorted(set(before) - set(found)):
        print("gone:", name)
        (APPROVED / f"{name}.txt").unlink()


def compare(found):
    """Shows the differences; gives how many documents differ."""
    before = approved()
    differ = [name for name in sorted(set(before) | set(found)) if before.get(name) != found.get(name)]
    for name in differ:
        lines = [text.get(name, "").splitlines() for text in (before, found)]
        for line in difflib.unified_diff(*lines, f"approved/{name}.txt", f"{name}, today", lineterm=""):
            print(line)
    print(f"{len(found)} documents, {len(differ)} of them differ from what was approved")
    if differ:
        print("If every difference is wanted, run scripts/approve and commit the folder with the change.")
    return len(differ)


def main():
    if len(sys.argv) < 2 or sys.argv[2:] not in ([], ["--approve"]):
        sys.exit(__doc__)
    sys.stdout.reconfigure(encoding="utf-8")
    with tempfile.TemporaryDirectory(prefix="quorra-test-") as folder:
        found = found_today(sys.argv[1], Path(folder))
    if sys.argv[2:]:
        approve(found)
    elif compare(found):
        sys.exit(1)


if __name__ == "__main__":
    main()
