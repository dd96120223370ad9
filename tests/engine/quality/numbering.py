# SPDX-License-Identifier: GPL-3.0-or-later
"""The lists of a .docx file: what kind each level is, and the number before each item."""
import collections
import re

from package import value


def roman(number):
    signs = ((1000, "m"), (900, "cm"), (500, "d"), (400, "cd"), (100, "c"), (90, "xc"), (50, "l"), (40, "xl"), (10, "x"),
             (9, "ix"), (5, "v"), (4, "iv"), (1, "i"))
    text = ""
    for each, sign in signs:
        text += sign * (number // each)
        number %= each
    return text


def letters(number):
    """a to z, then aa to zz, as word processors count."""
    return chr(ord("a") + (number - 1) % 26) * ((number - 1) // 26 + 1) if number > 0 else ""


FORMATS = {"lowerLetter": letters, "upperLetter": lambda n: letters(n).upper(), "lowerRoman": roman,
           "upperRoman": lambda n: roman(n).upper(), "decimalZero": lambda n: "%02d" % n}


class Numbering:
    """The lists of a file, and the current count of each."""

    def __init__(self, tree, styles):
        abstract = {each.get("abstractNumId"): each for each in tree.iter("abstractNum")}
        self._lists = {}
        for each in tree.iter("num"):
            levels = abstract.get(value(each, "abstractNumId"))
            self._lists[each.get("numId")] = levels
        for identity, levels in self._lists.items():
            # A list may leave its levels to that of a style.
            linked = value(styles.get(value(levels, "numStyleLink")), "pPr/numPr/numId") if levels is not None else None
            self._lists[identity] = self._lists.get(linked, levels)
        self._starts = {(each.get("numId"), override.get("ilvl")): int(value(override, "startOverride"))
                        for each in tree.iter("num") for override in each.iter("lvlOverride")
                        if value(override, "startOverride")}
        self._counts = collections.defaultdict(dict)

    def levels(self, identity):
        """The element with the levels of a list, or None."""
        return None if identity in (None, "0") else self._lists.get(identity)

    def level(self, identity, level):
        levels = self.levels(identity)
        if levels is None:
            return None
        return next((each for each in levels.iter("lvl") if each.get("ilvl") == level), None)

    def level_of_style(self, identity, style):
        return next((each.get("ilvl") for each in self.levels(identity).iter("lvl") if value(each, "pStyle") == style), "0")

    def kind(self, identity, level):
        """"bullet" or "number", or None for a list without labels."""
        form = value(self.level(identity, level), "numFmt") or "decimal"
        return None if form == "none" else "bullet" if form == "bullet" else "number"

    def next_label(self, identity, level):
        """Advances the count and returns the label of the next item."""
        depth = int(level)
        own = any(key[0] == identity for key in self._starts)
        counts = self._counts[identity if own else id(self.levels(identity))]
        counts[depth] = counts.get(depth, self._start(identity, depth) - 1) + 1
        for deeper in [each for each in counts if each > depth]:
            del counts[deeper]
        pattern = value(self.level(identity, level), "lvlText") or ""

        def number(match):
            wanted = int(match.group(1)) - 1
            form = FORMATS.get(value(self.level(identity, str(wanted)), "numFmt"), str)
            return form(counts.setdefault(wanted, self._start(identity, wanted)))

        return re.sub(r"%(\d)", number, pattern)

    def _start(self, identity, depth):
        start = self._starts.get((identity, str(depth)))
        return int(value(self.level(identity, str(depth)), "start") or 1) if start is None else start
