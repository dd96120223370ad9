// SPDX-License-Identifier: GPL-3.0-or-later
#include "flow_fit.h"

#include "document/page_walk.h"
#include "flow_areas.h"
#include "odf/font_widths.h"
#include "odf/line_layout.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

constexpr double closestLines = 0.9; // of their distance on the page: closer ones are hard to read
constexpr double leastSpaces = 0.5;
constexpr double strangeFont = 1.1; // by which the face that stands in for an unknown one may run wider
constexpr double blankWidth = 0.25; // of the size of type
constexpr double doubt = 0.05;      // of the lines: breaking them anew is only guessed at
constexpr double around = 3;        // points that a table or picture takes beyond its own height

// Heights on a page, by what can be done about them.
struct Heights
{
    double lines = 0;
    double spaces = 0;
    double fixed = 0;
};

bool isCommon(const model::Style &style)
{
    static const QRegularExpression names(
        u"^(Times|Arial|Helvetica|Courier|Liberation|Nimbus|DejaVu|Calibri|Carlito|Cambria|Caladea|[A-Z]{2,8}[0-9])"_s);
    return names.match(style.family).hasMatch();
}

double widthOf(const model::Word &word)
{
    const double drawn = word.box.width();
    const std::optional<double> known = textWidth(word.text, *word.style);
    if (isCommon(*word.style)) {
        return drawn;
    }
    return strangeFont * std::max(drawn, known.value_or(drawn));
}

Heights heightsOf(const model::Section &section, bool inColumns)
{
    Heights heights;
    double tallest = 0; // line
    std::vector<Area> areas(section.columns.size());
    for (Area &area : areas) {
        area.bottom = topOf(section);
    }
    const model::Picture *picture = nullptr;
    for (std::size_t i = 0; i < section.blocks.size(); ++i) {
        const model::Block &block = section.blocks[i];
        if (block.paragraph() && picture && isLabelOf(block, *picture)) {
            continue;
        }
        picture = block.picture();
        const auto column = std::min(static_cast<std::size_t>(std::max(0, block.column)), areas.size() - 1);
        Area &area = areas[column];
        const model::Paragraph *paragraph = block.paragraph();
        if (!paragraph) {
            heights.spaces += std::max(0.0, block.box().top - area.bottom);
            heights.fixed += block.box().height() + around;
            area.bottom = block.box().bottom;
            area.baseline.reset();
            continue;
        }
        const LaidOut lies = laidOut(*paragraph, area.baseline, baselineAfter(section, i));
        const double width = section.columns[column].width() - paragraph->indentLeft - paragraph->indentRight;
        heights.spaces += spaceAbove(area, lies.top, {});
        const int lines = paragraph->lines.size() > 1 ? wrappedLines(*paragraph, width) : 1;
        heights.lines += lines * lies.lineHeight;
        tallest = std::max(tallest, lies.lineHeight);
        area.bottom = lies.bottom;
        area.baseline = lastBaseline(*paragraph);
        area.followsOther = false;
        noteLines(*paragraph, section, areas, column);
    }
    if (inColumns) {
        const auto columns = static_cast<double>(section.columns.size());
        heights.lines /= columns;
        heights.spaces /= columns;
        heights.fixed /= columns;
        heights.fixed += tallest; // columns never come out quite equal
    }
    return heights;
}

} // namespace

int wrappedLines(const model::Paragraph &paragraph, double width)
{
    int lines = 1;
    double at = paragraph.firstLineIndent;
    double whole = 0; // of the word so far: its parts, also those on two lines, stay together
    bool atStart = true;
    for (const model::Line &line : paragraph.lines) {
        for (const model::Word &word : line.words) {
            whole += widthOf(word);
            const bool last = &word == &line.words.back();
            if (last ? word.text.endsWith(u'-') : !word.spaceAfter()) {
                continue;
            }
            const double blank = atStart ? 0 : blankWidth * word.style->size;
            const bool wraps = !atStart && at + blank + whole > width;
            lines += wraps ? 1 : 0;
            at = wraps ? whole : at + blank + whole;
            atStart = false;
            whole = 0;
        }
    }
    return lines;
}

Fit fitOf(const model::Page &page, double top, double end, bool columns)
{
    Heights all;
    double bottom = top;
    for (const model::Section &section : page.sections) {
        const bool inColumns = columns && standsInColumns(section, {true, true, true});
        const Heights heights = heightsOf(section, inColumns);
        all.spaces += heights.spaces + std::max(0.0, topOf(section) - bottom);
        all.lines += heights.lines;
        all.fixed += heights.fixed;
        for (const model::Block &block : section.blocks) {
            bottom = std::max(bottom, block.box().bottom);
        }
    }
    Fit fit;
    double over = (1 + doubt) * all.lines + all.spaces + all.fixed - (end - top);
    if (over <= 0) {
        return fit;
    }
    if (all.spaces > 0) {
        fit.spaces = std::max(leastSpaces, 1 - over / all.spaces);
        over -= (1 - fit.spaces) * all.spaces;
    }
    if (all.lines > 0 && over > 0) {
        fit.lines = std::max(closestLines, 1 - over / all.lines);
    }
    return fit;
}

} // namespace quorra::office
