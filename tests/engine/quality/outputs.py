# SPDX-License-Identifier: GPL-3.0-or-later
"""Converts documents, several in parallel, and reads the words of the results."""
import collections
import concurrent.futures
import os
import signal
import subprocess
import tempfile

import readers
import text_match
from word_facts import WordFacts

PATIENCE = 300  # seconds for one conversion; machines may be busy
LOT = 8  # files that one LibreOffice process converts
# The binary formats are read through LibreOffice, which makes the zipped ones of them.
READ_AS = {".doc": ".docx", ".rtf": ".docx", ".xls": ".xlsx", ".ppt": ".pptx"}


def convert(engine, document, extension, path):
    """Converts a document; returns whether the file was created."""
    # The references do not contain the text of scanned pages, which scans.py measures.
    command = [engine, "-noocr", *document.options, "-call", str(document.path), path]
    try:
        done = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, timeout=PATIENCE, check=False)
    except subprocess.TimeoutExpired:
        return False
    return done.returncode == 0 and os.path.exists(path)


def _office(paths, form, folder):
    with tempfile.TemporaryDirectory(prefix="quorra-quality-") as profile:
        command = ["soffice", "-env:UserInstallation=file://" + profile, "--headless", "--convert-to", form,
                   "--outdir", folder, *paths]
        with subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, start_new_session=True) as process:
            try:
                process.wait(PATIENCE)
            except subprocess.TimeoutExpired:
                os.killpg(process.pid, signal.SIGKILL)  # the command is a script that starts LibreOffice
                raise


def through_office(paths, form, folder, workers):
    """{path: the file that LibreOffice converted it to}; files that it cannot open are missing. Base names must differ."""
    made = {path: os.path.join(folder, os.path.splitext(os.path.basename(path))[0] + "." + form) for path in paths}

    def lots(size):
        left = [path for path in paths if not os.path.exists(made[path])]
        return [left[i:i + size] for i in range(0, len(left), size)]

    def one(lot):
        try:
            _office(lot, form, folder)
        except subprocess.TimeoutExpired:
            pass

    # One file that crashes LibreOffice ends the whole batch: convert missing files again one by one.
    for size in (LOT, 1):
        with concurrent.futures.ThreadPoolExecutor(workers) as pool:
            list(pool.map(one, lots(size)))
    return {path: other for path, other in made.items() if os.path.exists(other)}


def _word_text(path):
    """Words of the body with its list labels, hidden text and notes; words of headers and footers; whether these have
    the page's number as a field."""
    facts = WordFacts(path)
    text = [each.label + " " + each.text for each in facts.paragraphs] + facts.hidden + facts.notes
    return text_match.words("\n".join(text)), text_match.words("\n".join(facts.head_texts)), facts.page_field


def words_of(path, wanted, pages):
    """The words of an output. `wanted` are those of the PDF file, `pages` the number of its pages.

    A header is written once and stands on many pages: its words count as often as they are wanted, at most once a page,
    and so does a page number written as a field.
    """
    extension = os.path.splitext(path)[1]
    if extension == ".txt":
        with open(path, encoding="utf-8") as file:
            return text_match.words(file.read())
    if extension == ".xml":
        return text_match.words(readers.xml_words(path))
    if extension == ".pptx":
        return text_match.words("\n".join(readers.slide_texts(path)))
    if extension == ".xlsx":
        return text_match.words(readers.sheet_text(path))
    if extension == ".html":
        return list(readers.html_words(path, wanted, text_match.words).elements())
    body, edges, page_field = _word_text(path)
    numbers = [str(number) for number in range(1, pages + 1)] if page_field else []
    found = collections.Counter(body)
    readers.add_edges(found, collections.Counter(wanted), edges, numbers, pages)
    return list(found.elements())
