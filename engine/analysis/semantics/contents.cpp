// SPDX-License-Identifier: GPL-3.0-or-later
#include "semantics/contents.h"

#include "document/page_walk.h"

#include <QRegularExpression>

#include <algorithm>
#include <optional>
#include <vector>

namespace quorra::model {

namespace {

using contents::thresholds;

/// An entry that stands below the one before it, in a list of nothing but entries.
struct Candidate
{
    Paragraph *paragraph = nullptr;
    ContentsEntry entry;
    bool sure = false; ///< by itself: the tags say so, or it leads to a page
};

/// The page number after the last tab of the paragraph.
QString pageAtEnd(const Paragraph &paragraph)
{
    static const QRegularExpression number(QStringLiteral("^(?:\\d{1,4}|[ivxlc]{1,7}|[A-Z]-\\d{1,3})$"));
    const std::vector<Word> &words = paragraph.lines.back().words;
    const bool afterTab = words.size() > 1 && words[words.size() - 2].separator == Separator::Tab;
    return afterTab && number.match(words.back().text).hasMatch() ? words.back().text : QString();
}

std::optional<Candidate> candidateOf(Paragraph &paragraph)
{
    const bool text = paragraph.role == Role::Body || paragraph.role == Role::ListItem;
    if (!text || paragraph.lines.size() > thresholds.maxLines || paragraph.rotation != 0) {
        return std::nullopt;
    }
    const QString page = pageAtEnd(paragraph);
    const bool leader = std::any_of(
        paragraph.tabStops.begin(), paragraph.tabStops.end(), [](const TabStop &stop) { return stop.leader; });
    QString link;
    for (const Line &line : paragraph.lines) {
        for (const Word &word : line.words) {
            link = link.isEmpty() && word.link.startsWith(QLatin1String("#page=")) ? word.link : link;
        }
    }
    const bool fromTags = paragraph.contentsEntry.has_value();
    const bool isEntry = !page.isEmpty() && (leader || fromTags || !link.isEmpty());
    return isEntry ? std::optional(Candidate{&paragraph, {0, page, link}, fromTags || !link.isEmpty()}) : std::nullopt;
}

/// Sets the entries of a run of candidates, if it is a table of contents.
void setEntries(std::vector<Candidate> &run)
{
    const bool sure = std::all_of(run.begin(), run.end(), [](const Candidate &each) { return each.sure; });
    int last = 0;
    const bool counts = std::all_of(run.begin(), run.end(), [&last](const Candidate &each) {
        bool isNumber = false;
        const int page = each.entry.page.toInt(&isNumber);
        const bool goesOn = !isNumber || page >= last;
        last = isNumber ? page : last;
        return goesOn;
    });
    if (sure || (counts && run.size() >= thresholds.minEntries)) {
        std::vector<double> lefts; // of the open levels
        for (Candidate &each : run) {
            const double left = each.paragraph->lines.front().box.left;
            while (!lefts.empty() && left < lefts.back() - thresholds.levelIndent) {
                lefts.pop_back();
            }
            if (lefts.empty() || left > lefts.back() + thresholds.levelIndent) {
                lefts.push_back(left);
            }
            each.entry.level = static_cast<int>(lefts.size()) - 1;
            each.paragraph->contentsEntry = each.entry;
        }
    }
    run.clear();
}

} // namespace

void findContents(Document &document)
{
    std::vector<Candidate> run; // goes on over pages
    for (Page &page : document.pages) {
        forEachBlock(page, [&run](Block &block) {
            Paragraph *paragraph = block.paragraph();
            if (std::optional<Candidate> candidate = paragraph ? candidateOf(*paragraph) : std::nullopt) {
                run.push_back(std::move(*candidate));
            } else {
                setEntries(run);
            }
            if (paragraph) {
                paragraph->contentsEntry.reset(); // what the tags say counts for the whole table of contents only
            }
        });
    }
    setEntries(run);
}

} // namespace quorra::model
