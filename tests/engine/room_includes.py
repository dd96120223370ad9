#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Adds an include of every other room to a source of each room and sees whether the build takes it. Then compares the
includes between the folders of a room, which the build cannot refuse, with the table of its layers.

    room_includes.py BUILD_FOLDER

Takes the compile commands of the build; only the preprocessor runs.
"""
import json
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

# What each room can include besides itself.
VISIBLE = {
    "base": [],
    "platform": ["base"],
    "document": ["base"],
    "image": ["base", "platform", "document"],
    "ocr": ["base", "platform", "document", "image"],
    "pdf": ["base", "platform", "document", "image", "poppler"],
    "analysis": ["base", "document"],
    "writers/text": ["base", "document"],
    "writers/html": ["base", "document"],
    "writers/xml": ["base", "document"],
    "writers/odf": ["base", "document"],
    "writers/word": ["base", "document", "writers/odf"],
    "writers/slides": ["base", "document", "writers/odf"],
    "writers/sheets": ["base", "document", "writers/odf"],
    "writers/ooxml": ["base"],
    "libreoffice": ["base", "platform"],
    "cli": ["base", "platform", "document", "image"],
    "convert": ["base", "platform", "document", "image", "ocr", "pdf", "analysis", "writers/text",
                "writers/html", "writers/xml", "writers/odf", "writers/word", "writers/slides", "writers/sheets", "writers/ooxml",
                "libreoffice", "cli"],
}

# Folders inside rooms, from the lowest to the highest, and what each can include besides itself and the room's public
# headers. No folder can include the sources that are beside the folders, which use all of them.
LAYERS = {
    "analysis": {
        "text_lines": [],
        "columns": ["text_lines"],
        "tags": ["text_lines"],
        "paragraphs": ["text_lines", "tags"],
        "tables": ["text_lines", "tags", "paragraphs"],
        "figures": ["text_lines", "columns", "paragraphs"],
        "semantics": ["text_lines", "paragraphs"],
        "scans": [],
    },
    "ocr": {"module": [""]},  # the interface of the module, which the room loads
}

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


# Headers that are in the compiler's own folders, so that every room could include them: whose they are.
RECOGNITION_HEADERS = re.compile(r"#include <(tesseract|leptonica)/")
RECOGNITION = "ocr/module"


def public_header(engine, room):
    """A public header of the room, as included by others."""
    if room == "poppler":
        return "PDFDoc.h"
    include = engine / room / "include"
    return str(sorted(include.rglob("*.h"))[0].relative_to(include))


def preprocess(command, source, folder):
    """Returns whether the source passes the preprocessor with the flags of this compile command."""
    words = shlex.split(command["command"])
    words = [word for word in words if "ccache" not in word]
    flags = [word for i, word in enumerate(words[1:], 1)
             if word not in ("-c", "-o", command["file"]) and words[i - 1] != "-o"]
    done = subprocess.run([words[0], *flags, "-E", "-o", "/dev/null", str(source)], cwd=command["directory"],
                          stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, check=False)
    return done.returncode == 0, done.stderr


def forbidden_includes(room, layers, folder, text):
    """The includes of a source in the folder of a room that are neither in its own folder nor in one that it can see.
    Files beside the folders are in folder ""."""
    refused = []
    for name in INCLUDE.findall(text):
        if (room / folder / name).is_file() or not (room / name).is_file():
            continue  # beside the source, or a header of another room or a public one
        other = str(pathlib.PurePath(name).parent)
        other = "" if other == "." else other
        if other not in (folder, *layers[folder]):
            refused.append(name)
    return refused


def check_layers(engine):
    """Compares the folders of the rooms in LAYERS with their tables; returns the failures. Adds an include of each folder
    to a source of each other one, to see that the comparison can fail."""
    failures = []
    for name in VISIBLE:
        room = engine / name
        layers = LAYERS.get(name, {})
        below = [""]
        for folder, visible in layers.items():
            failures += [f"{name}/{folder} sees {other}, which is not below it" for other in visible if other not in below]
            below.append(folder)
        folders = {str(file.parent.relative_to(room)) for file in room.rglob("*.cpp")} - {"."}
        if folders != set(layers):
            failures.append(f"the folders of {name} are {sorted(folders)}, not {sorted(layers)}")
            continue
        for folder, visible in layers.items():
            headers = {other: sorted((room / other).glob("*.h")) for other in ("", *layers)}
            for source in sorted((room / folder).glob("*.[ch]*")):
                text = source.read_text()
                failures += [f"{source.relative_to(engine)} includes {include}"
                             for include in forbidden_includes(room, layers, folder, text)]
            for other in headers:
                added = f'#include "{headers[other][0].relative_to(room)}"\n'
                if bool(forbidden_includes(room, layers, folder, added)) != (other not in (folder, *visible)):
                    failures.append(f"an include of {other} in {name}/{folder} is judged wrongly")
    return failures


def main():
    build = pathlib.Path(sys.argv[1])
    engine = pathlib.Path(__file__).resolve().parents[2] / "engine"
    commands = json.loads((build / "compile_commands.json").read_text())
    failures = 0
    for file in sorted(engine.rglob("*.[ch]*")):
        if RECOGNITION_HEADERS.search(file.read_text()) and not file.is_relative_to(engine / RECOGNITION):
            print(f"FAILED: {file.relative_to(engine)} includes what only {RECOGNITION} can")
            failures += 1
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for room, visible in VISIBLE.items():
            # Only commands of the room's own target: tests and the program compile a few of its source files with their
            # own include paths.
            own = [c for c in commands if pathlib.Path(c["file"]).is_relative_to(engine / room)
                   and f" -o engine/{room}/" in c["command"]]
            source = folder / "copy.cpp"
            original = pathlib.Path(own[0]["file"]).read_text()
            source.write_text(original)
            taken, message = preprocess(own[0], source, folder)
            if not taken:
                print(f"FAILED: the copy of a source of {room} is refused as it is: {message}")
                failures += 1
            for other in [*VISIBLE, "poppler"]:
                if other == room:
                    continue
                source.write_text(f'#include "{public_header(engine, other)}"\n{original}')
                taken, message = preprocess(own[0], source, folder)
                if taken != (other in visible):
                    print(f"FAILED: {room} {'can' if taken else 'cannot'} include {other}")
                    failures += 1
    for failure in check_layers(engine):
        print(f"FAILED: {failure}")
        failures += 1
    print(f"{len(VISIBLE)} rooms, {failures} failures")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
