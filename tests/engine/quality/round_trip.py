# SPDX-License-Identifier: GPL-3.0-or-later
"""The round trip: how much of an office file is recovered from a PDF file exported from it.

Each function compares the facts of the original with those of the result and returns {figure: value}, 0 to 1. A figure is
None and does not count if the original has no content of that kind, except that false tables count as 0.
"""
import bisect
import collections
import os
import re
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
import table_score
import text_match
from sheet_facts import numbers_in
from slide_facts import Slide
from text_match import bag_f1, f1

WRONG_LEVEL = 0.5  # of a list item with the right text and the wrong kind or level


def relations(tables):
    found = collections.Counter()
    for cells in tables:
        found += table_score.relations(cells)
    return found


def items_f1(wanted, found):
    """F1 of list items (text, facts); with other facts an item counts half."""
    pairs = text_match.pairs_in_order(wanted, found)
    return f1(sum(1 if one == other else WRONG_LEVEL for one, other in pairs), len(wanted), len(found))


def styles_f1(wanted, wanted_styles, found, found_styles, pairs):
    """F1 of the characters that are bold, italic, underlined; None where no character of the original is."""
    hits = asked = 0
    for place, style in enumerate(wanted_styles):
        other = found_styles[pairs[place]] if place in pairs else (False, False, False)
        asked += sum(style) * len(wanted[place])
        hits += sum(one and two for one, two in zip(style, other)) * len(wanted[place])
    given = sum(sum(style) * len(word) for style, word in zip(found_styles, found))
    return f1(hits, asked, given) if asked else None


def addresses(facts):
    """The addresses outside the file, normalised."""
    return {re.sub(r"^\w+:/*|/+$", "", each.strip().lower()) for each in facts.links if not each.startswith("#")}


def compare_words(original, result, pages):
    """pages: the numbers of pages of the PDF file and of the result as LibreOffice lays it out."""
    wanted, wanted_styles, wanted_ends = original.words()
    found, found_styles, found_ends = result.words()
    alignment = text_match.Alignment(wanted, found)
    headings = original.headings(), result.headings()
    levels = text_match.pairs_in_order(*headings)
    items = original.list_items()
    heads, other_heads = ([word for text in each.heads for word in text_match.words(text)] for each in (original, result))
    title = text_match.normalised(original.title())
    return {
        "text": bag_f1(wanted, found),
        "paragraphs": bag_f1(*([text_match.without_label(each.text) for each in facts.paragraphs]
                               for facts in (original, result))),
        "paragraph breaks": f1(sum(alignment.pairs.get(end) in found_ends for end in wanted_ends),
                               len(wanted_ends), len(found_ends)),
        "order": alignment.order,
        "headings": f1(len(levels), *map(len, headings)) if headings[0] else None,
        "heading levels": (text_match.mean(one == other for one, other in levels) or 0.0) if headings[0] else None,
        "lists": items_f1(items, result.list_items()) if items else None,
        "tables": bag_f1(relations(original.tables), relations(result.tables)),
        "notes": bag_f1(*([text.replace(" ", "") for text in each.notes] for each in (original, result)))
                 if original.notes else None,
        "headers and footers": bag_f1(heads, other_heads) if heads else None,
        "page fields": float(result.page_field) if original.page_field else None,
        "character styles": styles_f1(wanted, wanted_styles, found, found_styles, alignment.pairs),
        "links": bag_f1(addresses(original), addresses(result)) if addresses(original) else None,
        "language": float(original.language == result.language) if original.language else None,
        "title": float(title == text_match.normalised(result.title())) if title else None,
        "pages": min(pages) / max(pages) if max(pages) else 0.0,
    }


class SameNumbers:
    """Finds the number of the original that a number of the result, rounded to its digits, represents."""

    def __init__(self, known):
        self._known = sorted(set(known))

    def canonical(self, number):
        """The original's number, or None."""
        digits = ("%.12f" % number).rstrip("0").partition(".")[2]
        tolerance = max(0.501 * 10 ** -len(digits), abs(number) * 1e-9)
        place = bisect.bisect_left(self._known, number)
        near = min(self._known[max(0, place - 1):place + 1], key=lambda each: abs(each - number), default=None)
        return near if near is not None and abs(near - number) <= tolerance else None


def compare_sheets(original, result, lost_dates):
    """lost_dates: how many dates and numbers the PDF file shows as "###", their column being too narrow."""
    numbers = SameNumbers(original.cells("number"))
    dates = set(original.cells("date"))

    def canonical(content):
        kind, value = content
        if kind == "number":
            same = numbers.canonical(value)
            return kind, value if same is None else same
        if kind == "date":
            return kind, value[:7] if value not in dates and value[:7] in dates else value
        return kind, value.replace(" ", "")

    def tables(facts):
        return [[(row, column, row, column, "%s %s" % canonical(content)) for (row, column), content in sheet.items()]
                for sheet in facts.sheets]

    def text(facts, also_in_text):
        """Words and numbers; a number in a text cell of the result counts as kept."""
        found = collections.Counter()
        for sheet in facts.sheets:
            for kind, value in sheet.values():
                if kind == "text":
                    found.update(text_match.words(value))
                    if also_in_text:
                        same = map(numbers.canonical, numbers_in(value))
                        found.update({("number", each) for each in same if each is not None})
                elif kind == "number":
                    found.update([canonical((kind, value))])
        return found

    def kept(kind):
        """The share of the original's cells of a kind that are cells of that kind in the result."""
        wanted, found = (collections.Counter(canonical(content)[1] for sheet in facts.sheets
                                             for content in sheet.values() if content[0] == kind)
                         for facts in (original, result))
        hits, count = sum((wanted & found).values()), sum(wanted.values())
        if kind == "date":
            count -= min(lost_dates, count - hits)
        return hits / count if count else None

    wanted, found = text(original, False), text(result, True)
    return {
        "neighbours": bag_f1(relations(tables(original)), relations(tables(result))),
        "text": sum((wanted & found).values()) / sum(wanted.values()) if wanted else None,
        "text cells": kept("text"),
        "numbers": kept("number"),
        "dates": kept("date"),
    }


def picture_counts(original, result):
    """How many pictures a slide should have and has. Charts and backgrounds may or may not become pictures."""
    return min(max(result.drawn, original.pictures), original.drawn), result.drawn


def compare_slides(original, result):
    """Items, paragraphs and words count only on the slide on which the original has them."""
    count = len(original.slides)
    missing = [Slide() for _ in range(count - len(result.slides))]
    both = list(zip(original.slides, result.slides + missing))
    titles = [tuple(text_match.normalised(" ".join(slide.title)).replace(" ", "") for slide in pair) for pair in both]
    asked, given = (sum(bool(pair[side]) for pair in titles) for side in (0, 1))
    items = [[((number, text), level) for number, pair in enumerate(both) for text, level in pair[side].items]
             for side in (0, 1)]
    paragraphs = [[(number, text_match.without_label(text)) for number, pair in enumerate(both)
                   for text in pair[side].paragraphs] for side in (0, 1)]
    words = [[(number, word) for number, pair in enumerate(both) for word in pair[side].words()] for side in (0, 1)]
    pictures = [picture_counts(*pair) for pair in both]
    return {
        "slides": min(count, len(result.slides)) / max(count, len(result.slides)),
        "titles": f1(sum(bool(one) and one == other for one, other in titles), asked, given) if asked else None,
        "bullets": items_f1(*items) if items[0] else None,
        "tables": bag_f1(*(relations(table for slide in facts.slides for table in slide.tables)
                           for facts in (original, result))),
        "paragraphs": bag_f1(*paragraphs),
        "text": bag_f1(*words),
        "order": text_match.mean(text_match.Alignment(one.words(), other.words()).order for one, other in both),
        "pictures": sum(map(min, pictures)) / max(1, sum(map(max, pictures)))
                    if any(slide.pictures for slide in original.slides) else None,
    }
