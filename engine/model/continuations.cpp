// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/model/build.h"
#include "engine/model/joining.h"
#include "engine/model/paragraphs.h"
#include "engine/model/roles.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

bool flows(const Paragraph &paragraph)
{
    return paragraph.role == Role::Body || paragraph.role == Role::ListItem;
}

double lastSize(const Paragraph &paragraph)
{
    return paragraph.runs.back().style.size;
}

bool goesOn(const Paragraph &before, const Paragraph &after)
{
    if (before.runs.empty() || after.runs.empty() || after.role != Role::Body || before.rotation != after.rotation ||
        before.runs.back().style.fixedPitch != after.runs.front().style.fixedPitch) {
        return false;
    }
    const double ratio = lastSize(before) / std::max(0.1, after.runs.front().style.size);
    const QString end = plainText(before.runs).trimmed();
    const QString begin = plainText(after.runs).trimmed();
    constexpr qsizetype shortest = 20;
    if (ratio < 0.9 || ratio > 1.1 || end.size() < shortest || begin.isEmpty() || endsSentence(end)) {
        return false;
    }
    const bool indented = after.firstLineIndent > 0.7 * after.runs.front().style.size;
    return begin.front().isLower() || endsInHyphen(end, begin) || (!indented && end.endsWith(QLatin1Char(','))) ||
           (!indented && before.lines.size() > 1 && before.alignment == Alignment::Justify);
}

} // namespace

void markContinuations(Document &document)
{
    Paragraph *before = nullptr;
    bool fresh = false; // a column or page began since `before`
    const Page *page = nullptr;
    for (Page &current : document.pages) {
        for (Section &section : current.sections) {
            int column = -1;
            for (Block &block : section.blocks) {
                fresh = fresh || block.column != column || &current != page;
                column = block.column;
                page = &current;
                Paragraph *paragraph = block.paragraph();
                if (!paragraph || !flows(*paragraph)) {
                    const bool heading = paragraph && paragraph->role <= Role::Heading3;
                    before = heading ? nullptr : before; // footnotes and figures may stand in between
                    continue;
                }
                if (before && fresh && goesOn(*before, *paragraph)) {
                    paragraph->continuesPrevious = true;
                    paragraph->joinsHyphen =
                        endsInHyphen(plainText(before->runs).trimmed(), plainText(paragraph->runs).trimmed());
                }
                before = paragraph;
                fresh = false;
            }
        }
    }
}

namespace {

void appendParagraph(Paragraph &before, Paragraph &after)
{
    if (!before.runs.empty()) {
        QString &text = before.runs.back().text;
        while (!text.isEmpty() && text.back().isSpace()) {
            text.chop(1);
        }
        if (after.joinsHyphen) {
            text.chop(1);
        } else {
            text += QLatin1Char(' ');
        }
    }
    for (Run &run : after.runs) {
        if (!before.runs.empty() && before.runs.back().style == run.style) {
            before.runs.back().text += run.text;
        } else {
            before.runs.push_back(std::move(run));
        }
    }
    std::move(after.lines.begin(), after.lines.end(), std::back_inserter(before.lines));
}

} // namespace

void joinContinuations(Document &document, bool overPages)
{
    Paragraph *before = nullptr;
    for (Page &page : document.pages) {
        before = overPages ? before : nullptr;
        for (Section &section : page.sections) {
            std::vector<char> gone(section.blocks.size(), 0);
            for (std::size_t i = 0; i < section.blocks.size(); ++i) {
                Paragraph *paragraph = section.blocks[i].paragraph();
                if (!paragraph || !flows(*paragraph)) {
                    continue;
                }
                if (paragraph->continuesPrevious && before) {
                    appendParagraph(*before, *paragraph);
                    gone[i] = 1;
                } else {
                    before = paragraph;
                }
            }
            // Blocks are moved below, so that a pointer into this section must be found anew.
            std::size_t kept = 0;
            const Paragraph *last = before;
            for (std::size_t i = 0; i < section.blocks.size(); ++i) {
                if (gone[i]) {
                    continue;
                }
                const bool isLast = section.blocks[i].paragraph() && section.blocks[i].paragraph() == last;
                if (kept != i) {
                    section.blocks[kept] = std::move(section.blocks[i]);
                }
                if (isLast) {
                    before = section.blocks[kept].paragraph();
                    last = nullptr;
                }
                ++kept;
            }
            section.blocks.resize(kept);
        }
    }
}

} // namespace quorra::model
