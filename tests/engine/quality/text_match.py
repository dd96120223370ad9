# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares texts: which words they share, and whether these are in the same order."""
import bisect
import collections
import difflib
import re
import unicodedata

# Kana, Han and Hangul are written without spaces: each of their characters counts as a word.
UNSPACED = "\u3040-\u30ff\u3400-\u4dbf\u4e00-\u9fff\uac00-\ud7af"
WORD = re.compile("[%s]|[^\\W_%s]+" % (UNSPACED, UNSPACED))
INVISIBLE = re.compile("[\u00ad\u200b]")  # soft hyphen, zero-width space
PLAIN = str.maketrans({"‘": "'", "’": "'", "“": '"', "”": '"', "‐": "-", "‑": "-"})
LEADER = re.compile(r"[._…]{3,}")
# The label of a list item that is part of the text: a bullet, or a number or letter with its sign.
LABEL = re.compile(
    r"(?:[\u2022\u00b7\u25aa\u25e6\u25cb\u25cf\u25a0\u25a1\u27a2\u2713\u2756\u2013\u2014\-*\uf000-\uf0ff]"
    r"|\(?\d{1,3}(?:\.\d{1,3})*[.):]|\d{1,3}(?:\.\d{1,3})+|\(?[ivxIVX]{1,5}[.)]|\(?[A-Za-z][.)])\s+")

# A gap between two anchors is compared word by word only up to this many pairs of words: the time is quadratic.
LARGEST_GAP = 4_000_000
# A text with fewer distinct triples of words has no order to speak of.
FEWEST_TRIPLES = 6


def normalised(text):
    """The text without differences that a reader does not see: compatibility forms, kinds of quotes, leaders, spaces."""
    text = unicodedata.normalize("NFKC", INVISIBLE.sub("", text)).translate(PLAIN)
    return " ".join(LEADER.sub(" ", text).split())


def without_label(text):
    """The normalised text of a paragraph without a literal list label at its beginning."""
    text = normalised(text)
    label = LABEL.match(text)
    return text[label.end():] if label else text


def words(text):
    return WORD.findall(normalised(text))


def squeezed(text):
    return without_label(text).replace(" ", "")


def mean(values):
    """The mean of those values that are not None; None without any."""
    values = [value for value in values if value is not None]
    return sum(values) / len(values) if values else None


def f1(hits, wanted, found):
    """The F1 score of `hits` among `wanted` and `found` things; None if both are 0."""
    return 2 * hits / (wanted + found) if wanted + found else None


def bag_f1(wanted, found):
    """F1 of two multisets, given as iterables or counters."""
    wanted, found = collections.Counter(wanted), collections.Counter(found)
    return f1(sum((wanted & found).values()), sum(wanted.values()), sum(found.values()))


def pairs_in_order(wanted, found):
    """Joins entries (text, facts) of both sides that have the same text, the first with the first, and so on; gives the
    facts of each such pair."""
    waiting = collections.defaultdict(collections.deque)
    for text, facts in found:
        waiting[text].append(facts)
    return [(facts, waiting[text].popleft()) for text, facts in wanted if waiting[text]]


def longest_increasing(values):
    """The positions of a longest strictly increasing subsequence."""
    ends, end_positions, before = [], [], []
    for position, value in enumerate(values):
        length = bisect.bisect_left(ends, value)
        before.append(end_positions[length - 1] if length else None)
        ends[length:length + 1] = [value]
        end_positions[length:length + 1] = [position]
    chain, position = [], end_positions[-1] if end_positions else None
    while position is not None:
        chain.append(position)
        position = before[position]
    return chain[::-1]


def unique_triples(text):
    """The positions of the sequences of three words that occur once in the list of words."""
    places = collections.defaultdict(list)
    for place, triple in enumerate(zip(text, text[1:], text[2:])):
        places[triple].append(place)
    return {triple: found[0] for triple, found in places.items() if len(found) == 1}


class Alignment:
    """Which word of `found` each word of `wanted` is. Both are lists of words.

    pairs  {position in wanted: position in found}
    order  the share of the triples unique to both that are in the same order; 0 if there are none, None where
           `wanted` is too short to expect any
    """

    def __init__(self, wanted, found):
        there = unique_triples(found)
        here = unique_triples(wanted)
        common = [(place, there[triple]) for triple, place in here.items() if triple in there]
        anchors = [common[i] for i in longest_increasing([place for _, place in common])]
        self.order = len(anchors) / len(common) if common else 0.0 if len(here) >= FEWEST_TRIPLES else None
        self.pairs, self._taken = {}, set()
        for place, other in anchors + common:
            self._join(place, other, 3)
        begin = (0, 0)
        for end in anchors + [(len(wanted), len(found))]:
            self._fill(wanted, found, begin, end)
            begin = (max(begin[0], end[0] + 3), max(begin[1], end[1] + 3))

    def _join(self, place, other, count):
        for step in range(count):
            if place + step not in self.pairs and other + step not in self._taken:
                self.pairs[place + step] = other + step
                self._taken.add(other + step)

    def _fill(self, wanted, found, begin, end):
        """Joins equal words between two anchors."""
        left, right = wanted[begin[0]:end[0]], found[begin[1]:end[1]]
        if not left or not right or len(left) * len(right) > LARGEST_GAP:
            return
        for block in difflib.SequenceMatcher(None, left, right, autojunk=False).get_matching_blocks():
            self._join(begin[0] + block.a, begin[1] + block.b, block.size)
