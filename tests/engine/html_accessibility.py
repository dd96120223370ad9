#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Loads HTML outputs in a browser and checks them with the rules of axe-core, at the widths of a desktop and of a phone.

Usage: html_accessibility.py ENGINE SAMPLES [--keep FOLDER] [PDF...]

The documents are samples and drawn documents, or the files given. --keep FOLDER keeps the outputs and screenshots of
both widths. Skipped without the browser or without axe-core, which `scripts/install-packages test` installs.
"""
import json
import os
import pathlib
import subprocess
import sys
import tempfile

import browser

HERE = pathlib.Path(__file__).resolve().parent
RULES = HERE.parents[1] / "build" / "accessibility" / "node_modules" / "axe-core" / "axe.min.js"
SKIPPED = 77
DESKTOP, PHONE = (1200, 900), (360, 740)
SAMPLES = ["report", "figures", "right-to-left", "two-columns", "rotated"]
DRAWN = ["headings-by-size", "headings-by-bold", "document-with-two-chapters", "contents-with-leaders", "footnotes",
         "footnotes-in-two-columns", "endnotes", "picture-with-caption", "picture-in-text", "ruled-table-with-spans",
         "table-with-long-heads", "table-over-two-pages", "landscape-table-on-portrait-page", "nested-list", "check-list",
         "header-and-footer", "interactive-form", "code-listing", "map-with-labels", "chinese-paragraphs", "poem",
         "tagged-headings-and-paragraphs"]
# The colours of the text are those of the PDF file: their contrast is not a property of the output.
AXE = """axe.run({rules: {"color-contrast": {enabled: false}}}).then(results => results.violations.map(
    each => [each.id, each.help, each.nodes.map(node => node.html).slice(0, 3)]))"""
FACTS = """({
    headings: [...document.querySelectorAll("h1,h2,h3,h4,h5,h6")].map(each => +each.tagName[1]),
    title: document.title,
    lost: [...document.querySelectorAll('a[href^="#"]')].map(each => each.getAttribute("href"))
        .filter(each => !document.getElementById(each.slice(1))),
    landmarks: ["main", "body > header", "body > footer"].map(each => document.querySelectorAll(each).length),
    repeats: [...document.querySelectorAll("section header, section footer")].length,
    wide: document.scrollingElement.scrollWidth - innerWidth})"""


def faults(facts, phone):
    """What is wrong with the page: texts."""
    levels = facts["headings"]
    found = []
    if levels.count(1) != 1:
        found.append(f"{levels.count(1)} headings of level 1")
    found += [f"heading level {after} follows {before}" for before, after in zip(levels, levels[1:]) if after > before + 1]
    found += [f"link to {each}, which is missing" for each in facts["lost"]]
    if not facts["title"]:
        found.append("no title")
    main, header, footer = facts["landmarks"]
    if main != 1 or header > 1 or footer > 1 or facts["repeats"]:
        found.append(f"landmarks: {main} main, {header} header, {footer} footer, {facts['repeats']} in pages")
    if phone and facts["wide"] > 0:
        found.append(f"{facts['wide']} pixels wider than the window")
    return found


def documents(folder, samples):
    drawn = folder / "drawn"
    subprocess.run(["/usr/bin/python3", "-B", str(HERE / "documents" / "draw.py"), str(drawn), *DRAWN], check=True)
    return [samples / f"{name}.pdf" for name in SAMPLES] + [drawn / f"{name}.pdf" for name in DRAWN]


def check(page, engine, document, folder):
    """Converts a document and returns what is wrong with its pages."""
    path = folder / f"{document.stem}.html"
    subprocess.run([engine, "-call", str(document), str(path)], check=True, stdin=subprocess.DEVNULL)
    found = []
    for name, size in (("desktop", DESKTOP), ("phone", PHONE)):
        page.open(path, *size)
        found += [f"{name}: {each}" for each in faults(page.evaluate(FACTS), name == "phone")]
        page.screenshot(folder / f"{document.stem}-{name}.png")
    page.evaluate(RULES.read_text(encoding="utf-8") + ";0")
    found += [f"{rule}: {text}: {nodes}" for rule, text, nodes in page.evaluate(AXE)]
    return list(dict.fromkeys(found))


def main():
    engine, samples, *rest = sys.argv[1:]
    if not browser.program() or not RULES.exists():
        print("not run: no browser" if RULES.exists() else "not run: axe-core is not installed")
        return SKIPPED
    kept = None
    if rest[:1] == ["--keep"]:
        kept = pathlib.Path(rest[1])
        kept.mkdir(parents=True, exist_ok=True)
        rest = rest[2:]
    failed = 0
    with tempfile.TemporaryDirectory(prefix="quorra-test-") as name, browser.Browser() as page:
        folder = pathlib.Path(name)
        given = [pathlib.Path(each) for each in rest] or documents(folder, pathlib.Path(samples))
        for document in given:
            for fault in check(page, os.path.abspath(engine), document, kept or folder):
                failed += 1
                print(f"FAILED: {document.name}: {fault}")
        print(json.dumps({"documents": len(given), "faults": failed}))
    return 1 if failed else 0


sys.exit(main())
