// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab_columns.h"

#include "document/text.h"
#include "sheet_layout.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace quorra::office {

namespace {

struct Thresholds
{
    double minColumnWidth = 24;  ///< points; parts that begin closer to one another share a column
    std::size_t maxColumns = 16; ///< more beginnings than these are no columns
};
constexpr Thresholds thresholds;

model::Paragraph partOf(const model::Paragraph &paragraph, std::vector<model::Word> words)
{
    model::Paragraph part = paragraph;
    model::Line &line = part.lines.front();
    line.words = std::move(words);
    line.box.left = line.words.front().box.left;
    line.box.right = line.words.back().box.right;
    part.box.left = line.box.left;
    part.box.right = line.box.right;
    part.tabStops.clear();
    return part;
}

/// Returns whether the part is a number like "2.1" or "IV.", which belongs to the text after it.
bool isSectionNumber(const model::Paragraph &part)
{
    static const QRegularExpression pattern(QStringLiteral(R"(^\(?(?:[0-9]+|[IVXivx]+|[A-Za-z])(?:\.[0-9]+)*[.)]?$)"));
    return pattern.match(model::plainText(part).trimmed()).hasMatch();
}

double neededWidth(const model::Paragraph &part)
{
    return cellReserves.font * part.box.width() + cellReserves.sidePadding;
}

} // namespace

std::vector<model::Paragraph> tabParts(const model::Paragraph &paragraph)
{
    std::vector<model::Paragraph> parts;
    if (paragraph.lines.size() != 1 || paragraph.preformatted || paragraph.rightToLeft || paragraph.rotation != 0) {
        return parts;
    }
    std::vector<model::Word> words;
    const auto finish = [&] {
        if (!words.empty()) {
            parts.push_back(partOf(paragraph, std::exchange(words, {})));
        }
    };
    const std::vector<model::Word> &all = paragraph.lines.front().words;
    for (const model::Word &word : all) {
        if (!word.leader) {
            words.push_back(word);
        }
        const bool mark = paragraph.listItem && &word == &all.front();
        if (word.separator == model::Separator::Tab && !mark) {
            finish();
        }
    }
    finish();
    const bool isNumbered = parts.size() == 2 && (paragraph.role == model::Role::Heading || isSectionNumber(parts[0]));
    if (parts.size() < 2 || isNumbered) {
        return {};
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
        parts[i].alignment = model::Alignment::Left;
        if (i > 0) {
            parts[i].listItem.reset();
            parts[i].indentLeft = 0;
            const bool known = i <= paragraph.tabStops.size();
            const bool right = known && paragraph.tabStops[i - 1].alignment == model::Alignment::Right;
            parts[i].alignment = right ? model::Alignment::Right : model::Alignment::Left;
        }
    }
    return parts;
}

std::vector<PartColumns>
columnsForParts(const std::vector<model::Paragraph> &parts, double left, std::vector<double> &columnWidths)
{
    std::vector<PartColumns> places;
    std::size_t column = 0;
    double offset = left; // x coordinate of the column
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const double wanted = neededWidth(parts[i]);
        if (column == columnWidths.size()) {
            columnWidths.push_back(std::max(thresholds.minColumnWidth, wanted));
        }
        PartColumns place{static_cast<int>(column), 1};
        double end = offset + columnWidths[column++];
        const bool last = i + 1 == parts.size();
        const double next = last ? 0 : parts[i + 1].box.left;
        while (column < columnWidths.size() && (end < parts[i].box.right - cellReserves.sidePadding ||
                                                (!last && end + columnWidths[column] / 2 < next))) {
            end += columnWidths[column++];
            ++place.span;
        }
        offset = end;
        places.push_back(place);
    }
    return places;
}

std::vector<double>
columnsFromParts(const std::vector<std::vector<model::Paragraph>> &lines, double left, double textWidth)
{
    std::vector<double> begins;
    for (const std::vector<model::Paragraph> &parts : lines) {
        for (std::size_t i = 1; i < parts.size(); ++i) {
            begins.push_back(parts[i].box.left);
        }
    }
    std::sort(begins.begin(), begins.end());
    std::vector<double> widths;
    double edge = left;
    for (const double begin : begins) {
        if (begin - edge >= thresholds.minColumnWidth && begin < left + textWidth) {
            widths.push_back(begin - edge);
            edge = begin;
        }
    }
    if (widths.size() >= thresholds.maxColumns) {
        return {textWidth};
    }
    widths.push_back(std::max(left + textWidth - edge, thresholds.minColumnWidth));
    return widths;
}

} // namespace quorra::office
