// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/analysis.h"
#include "document/line_text.h"
#include "paragraphs/paragraphs.h"
#include "semantics/roles.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>

namespace quorra::model {

namespace {

bool flows(const Paragraph &paragraph)
{
    return paragraph.role == Role::Body || paragraph.role == Role::ListItem;
}

bool isHeading(Role role)
{
    return role == Role::Heading1 || role == Role::Heading2 || role == Role::Heading3;
}

// Text goes on in text of its size: notes at the foot of a column and captions stand in between.
int sizeClass(const Paragraph &paragraph)
{
    double sum = 0;
    double letters = 0;
    for (const Line &line : paragraph.lines) {
        for (const Word &word : line.words) {
            sum += word.style.size * static_cast<double>(word.text.size());
            letters += static_cast<double>(word.text.size());
        }
    }
    return static_cast<int>(std::lround(sum / std::max(1.0, letters)));
}

using LastOfSize = std::map<int, Paragraph *>;

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
    LastOfSize last;
    std::map<int, int> columnOf; // the column, counted over the document, in which the last paragraph of a size stands
    int column = 0;
    for (Page &page : document.pages) {
        for (Section &section : page.sections) {
            int inSection = -1;
            for (Block &block : section.blocks) {
                column += block.column != inSection ? 1 : 0;
                inSection = block.column;
                Paragraph *paragraph = block.paragraph();
                if (!paragraph || !flows(*paragraph)) {
                    if (paragraph && isHeading(paragraph->role)) {
                        last.clear();
                    }
                    continue;
                }
                const int size = sizeClass(*paragraph);
                Paragraph *before = last[size];
                if (before && columnOf[size] != column && goesOn(*before, *paragraph)) {
                    paragraph->continuesPrevious = true;
                    paragraph->joinsHyphen =
                        endsInHyphen(plainText(before->runs).trimmed(), plainText(paragraph->runs).trimmed());
                }
                last[size] = paragraph;
                columnOf[size] = column;
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
        if (!before.runs.empty() && before.runs.back().style == run.style && before.runs.back().script == run.script) {
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
    LastOfSize last;
    for (Page &page : document.pages) {
        if (!overPages) {
            last.clear();
        }
        for (Section &section : page.sections) {
            std::vector<Block> kept;
            kept.reserve(section.blocks.size()); // addresses of the kept paragraphs must last
            for (Block &block : section.blocks) {
                Paragraph *paragraph = block.paragraph();
                const bool text = paragraph && flows(*paragraph);
                const int size = text ? sizeClass(*paragraph) : 0;
                if (text && paragraph->continuesPrevious && last[size]) {
                    appendParagraph(*last[size], *paragraph);
                    continue;
                }
                kept.push_back(std::move(block));
                if (text) {
                    last[size] = kept.back().paragraph();
                }
            }
            section.blocks = std::move(kept);
        }
    }
}

} // namespace quorra::model
