# SPDX-License-Identifier: GPL-3.0-or-later
"""The committed table of floors: the lowest accepted value of each figure.

The key of a row is (figure, kind, subject); the subject is the name of an opened document or the mean of a half. Values
are between 0 and 1, and higher is better. The rows of the figure "documents" contain the number of documents behind each
mean: means of other sets of documents cannot be compared.
"""
import math

MEAN_MAY_FALL = 0.005
DOCUMENT_MAY_FALL = 0.05
DIGITS = 3
DOCUMENTS = "documents"
HEADING = "figure\tkind\tsubject\tfloor"
ROUNDING = 1e-9


def mean_of(half):
    return "mean of " + half


def is_mean(key):
    return key[2].startswith("mean of ")


def parse(text):
    """The table as {(figure, kind, subject): value}; raises ValueError for a malformed line."""
    rows = {}
    for line in text.splitlines():
        if not line or line.startswith("#") or line == HEADING:
            continue
        figure, kind, subject, value = line.split("\t")
        key = (figure, kind, subject)
        if key in rows:
            raise ValueError("twice in the table: %s, %s, %s" % key)
        rows[key] = float(value)
    return rows


def text_of(rows, comment):
    """The table as text, sorted, values truncated to three digits."""
    lines = ["# " + line if line else "#" for line in comment.splitlines()] + [HEADING]
    for key, value in sorted(rows.items()):
        cut = math.floor(value * 10 ** DIGITS + ROUNDING * 10 ** DIGITS) / 10 ** DIGITS
        lines.append("\t".join(key) + ("\t%d" % value if key[0] == DOCUMENTS else "\t%.*f" % (DIGITS, cut)))
    return "\n".join(lines) + "\n"


def comparable(floors, measured, kind, half):
    """Whether the means of a kind of output in a half cover as many documents as those of the table."""
    key = (DOCUMENTS, kind, half)
    return floors.get(key) == measured.get(key)


def _half_of(key):
    return key[2][len(mean_of("")):]


def falls(floors, measured, halves):
    """The rows (key, floor, value) that have fallen too far, sorted. Means that cannot be compared are left out; a mean
    that could be and was not measured has the value None."""
    fallen = []
    for key, floor in sorted(floors.items()):
        if key[0] == DOCUMENTS:
            continue
        value = measured.get(key)
        if is_mean(key):
            wanted = _half_of(key) in halves and comparable(floors, measured, key[1], _half_of(key))
            low = wanted and (value is None or value < floor - MEAN_MAY_FALL - ROUNDING)
        else:
            # No value: the document is missing, or no longer has unwanted content of that kind.
            low = value is not None and value < floor - DOCUMENT_MAY_FALL - ROUNDING
        if low:
            fallen.append((key, floor, value))
    return fallen


def raised(floors, measured, lower=False):
    """The table with the measured rows; a floor falls only when `lower` says so. Rows that were not measured stay. Means
    of other documents than before replace the old ones."""
    rows = dict(floors)
    for key, value in measured.items():
        replaced = lower or key[0] == DOCUMENTS or is_mean(key) and not comparable(floors, measured, key[1], _half_of(key))
        rows[key] = value if replaced else max(value, rows.get(key, value))
    return rows
