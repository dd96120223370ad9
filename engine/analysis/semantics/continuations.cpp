// SPDX-License-Identifier: GPL-3.0-or-later
#include "semantics/continuations.h"

#include "analysis/analysis.h"
#include "document/text.h"
#include "paragraphs/dehyphenation.h"
#include "paragraphs/paragraph_breaks.h"
#include "paragraphs/paragraphs.h"
#include "text_lines/sentence_end.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>

namespace quorra::model {

namespace {

struct Thresholds
{
    qsizetype minLength = 20; ///< characters; a shorter paragraph is a heading or a label, which does not continue
};

constexpr Thresholds thresholds;

bool flows(const Paragraph &paragraph)
{
    return paragraph.role == Role::Body || paragraph.role == Role::ListItem;
}

// The mean font size in whole points. A paragraph continues in one of its size; notes and captions are in between.
int sizeClass(const Paragraph &paragraph)
{
    return static_cast<int>(std::lround(meanFontSize(paragraph)));
}

using LastOfSize = std::map<int, Paragraph *>;

bool continues(const Paragraph &before, const Paragraph &after)
{
    if (before.tag && after.tag) {
        return *before.tag == *after.tag;
    }
    const std::vector<Run> runsBefore = runsOf(before);
    const std::vector<Run> runsAfter = runsOf(after);
    if (runsBefore.empty() || runsAfter.empty() || after.role != Role::Body || before.rotation != after.rotation ||
        runsBefore.back().style.fixedPitch != runsAfter.front().style.fixedPitch) {
        return false;
    }
    const double size = runsAfter.front().style.size;
    const double ratio = runsBefore.back().style.size / size;
    const QString end = plainText(runsBefore).trimmed();
    const QString begin = plainText(runsAfter).trimmed();
    if (ratio < paragraphBreaks::thresholds.minSizeRatio || ratio > paragraphBreaks::thresholds.maxSizeRatio ||
        end.size() < thresholds.minLength || begin.isEmpty() || endsSentence(end)) {
        return false;
    }
    const bool indented = after.firstLineIndent > paragraphBreaks::thresholds.minIndent * size;
    return begin.front().isLower() || endsInHyphen(end, begin) || (!indented && end.endsWith(QLatin1Char(','))) ||
           (!indented && before.lines.size() > 1 && before.alignment == Alignment::Justify);
}

} // namespace

void markContinuations(Document &document)
{
    LastOfSize last;
    std::map<int, int> columnOf; // the column, counted over the document, of the last paragraph of a size
    int column = 0;
    for (Page &page : document.pages) {
        for (Section &section : page.sections) {
            int inSection = -1;
            for (Block &block : section.blocks) {
                column += block.column != inSection ? 1 : 0;
                inSection = block.column;
                Paragraph *paragraph = block.paragraph();
                if (!paragraph || !flows(*paragraph)) {
                    if (paragraph && paragraph->role == Role::Heading) {
                        last.clear();
                    }
                    continue;
                }
                const int size = sizeClass(*paragraph);
                Paragraph *before = last[size];
                if (before && columnOf[size] != column && continues(*before, *paragraph)) {
                    paragraph->continuesPrevious = true;
                    const bool hyphen = endsInHyphen(plainText(*before).trimmed(), plainText(*paragraph).trimmed());
                    before->lines.back().words.back().separator = hyphen ? Separator::Hyphen : Separator::Space;
                }
                last[size] = paragraph;
                columnOf[size] = column;
            }
        }
    }
}

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
                    Paragraph &before = *last[size];
                    std::move(paragraph->lines.begin(), paragraph->lines.end(), std::back_inserter(before.lines));
                    before.preformatted = isPreformatted(before);
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
