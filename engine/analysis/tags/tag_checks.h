// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tags/tagged_text.h"

namespace quorra::model {

namespace tagChecks {

/// Lengths in em are multiples of the text's font size.
struct Thresholds
{
    double minCovered = 0.8;   ///< share of the letters that belong to an element, artifacts left out
    double maxArtifacts = 0.5; ///< share of the letters; running titles and page numbers are a small part of a page
    double maxForeign = 0.1;   ///< share of the words that are inside paragraphs other than their own
    std::size_t maxSteps = 5'000'000; ///< of the search for those; the tags of a page that takes more are ignored
    double maxTorn = 0.2;      ///< share of the words in paragraphs that cannot be one: wide gaps, different sizes
    double minGap = 3.5;       ///< em; between baselines, no paragraph is set wider
    double minSizeRatio = 1.6; ///< of the font sizes of two lines; initials and notes are set in other paragraphs
    double maxUpward = 0.2;    ///< share of the paragraphs that are right above the one read before
    std::size_t fewUpward = 2; ///< this many are no proof
    double maxCut = 0.3;       ///< share of the paragraphs that end inside a sentence which the next one goes on with
    std::size_t fewCut = 3;    ///< this many are no proof
    double minUpStep = 1;      ///< em; smaller steps upwards are within a line
    double minOverlap = 0.3;   ///< share of the narrower one's width; columns do not overlap
    double maxHeadings = 0.6;  ///< share of the letters of a document
    std::size_t minLetters = 200; ///< of a document before the share of its headings says something
    int maxHeading = 300;         ///< letters; longer headings are paragraphs
};

inline constexpr Thresholds thresholds;

} // namespace tagChecks

/// Whether the tags of the page agree with what the page shows: nearly all text is covered, most of it is no artifact,
/// paragraphs are in one piece, and the order is one that somebody could read in. Words in other directions than the
/// page's text do not count. A page without tagged words has no sound tags.
bool areTagsSound(const RawPage &page, const TaggedText &text);

/// Takes back the role of headings that are far too long. Where most of the text is a heading, all tags are ignored:
/// then the text has no contents any more.
void checkHeadings(const std::vector<RawPage> &pages, TaggedText &text);

} // namespace quorra::model
