// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/table_continuations.h"

#include "document/page_walk.h"
#include "document/text.h"
#include "paragraphs/dehyphenation.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

using tableContinuations::thresholds;

/// A table and the paragraph right above it on its page, null if there is none.
struct Part
{
    Table *table = nullptr;
    const Paragraph *title = nullptr;
};

// Text in another direction stands at the margins, whatever its place in the order of blocks.
bool isMarginal(const Block &block)
{
    return block.paragraph() && block.paragraph()->rotation != 0;
}

// The words of two titles that are the same, from the first on: "Table 3" of "Table 3, continued".
bool shareLabel(const Paragraph &a, const Paragraph &b)
{
    const QStringList one = plainText(a).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const QStringList other = plainText(b).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    std::size_t same = 0;
    while (same < thresholds.minLabelWords && static_cast<qsizetype>(same) < std::min(one.size(), other.size())) {
        const auto at = static_cast<qsizetype>(same);
        QString left = one[at];
        QString right = other[at];
        for (QString *word : {&left, &right}) {
            while (!word->isEmpty() && word->back().isPunct()) {
                word->chop(1);
            }
        }
        if (left != right) {
            return false;
        }
        ++same;
    }
    return same == thresholds.minLabelWords;
}

// The last block of the page, but for notes at its foot, if it is a table that reaches far enough down.
Part tableAtEnd(Page &page)
{
    Part part;
    const Block *previous = nullptr;
    forEachBlock(page, [&](Block &block) {
        const Paragraph *paragraph = block.paragraph();
        if (isMarginal(block) || (part.table && paragraph && paragraph->role == Role::Footnote)) {
            return;
        }
        part.table = block.table();
        part.title = part.table && previous ? previous->paragraph() : nullptr;
        previous = &block;
    });
    if (part.table && part.table->box.bottom < thresholds.minBottom * page.height) {
        return {};
    }
    return part;
}

// The first block of the page, but for one title above it, if it is a table that begins high enough.
Part tableAtStart(Page &page)
{
    Part part;
    bool found = false;
    forEachBlock(page, [&](Block &block) {
        if (found || isMarginal(block)) {
            return;
        }
        const Paragraph *paragraph = block.paragraph();
        if (paragraph && !part.title && paragraph->lines.size() <= thresholds.maxTitleLines) {
            part.title = paragraph;
            return;
        }
        found = true;
        part.table = block.table();
    });
    if (!part.table || part.table->box.top > thresholds.maxTop * page.height) {
        return {};
    }
    return part;
}

QStringList rowTexts(const Table &table, int row)
{
    QStringList texts;
    for (const Cell &cell : table.cells) {
        if (cell.row == row) {
            texts += plainText(runsOf(cell)).simplified();
        }
    }
    return texts;
}

int repeatedRows(const Table &first, const Table &next)
{
    int rows = 0;
    while (rows < std::min(first.rows(), next.rows()) - 1 && rowTexts(first, rows) == rowTexts(next, rows)) {
        ++rows;
    }
    const QStringList upper = rows == 0 ? QStringList() : rowTexts(first, 0);
    return std::all_of(upper.begin(), upper.end(), [](const QString &text) { return text.isEmpty(); }) ? 0 : rows;
}

// Whether the columns have the same places on both pages, apart from a shift as between left and right pages.
bool sameEdges(const Table &a, const Table &b)
{
    const bool drawn = a.ruled && b.ruled;
    const double tolerance = drawn ? thresholds.sameRuledEdge : thresholds.sameOpenEdge;
    const double shift = b.columnEdges.front() - a.columnEdges.front();
    return a.ruled == b.ruled &&
           std::equal(
               a.columnEdges.begin(), a.columnEdges.end(), b.columnEdges.begin(), b.columnEdges.end(),
               [&](double x, double y) { return std::abs(x + shift - y) <= tolerance; });
}

// Whether the cells go on in the middle of a sentence: the upper one, which begins one, does not end it.
bool goesOn(const QString &upper, const QString &lower)
{
    return !upper.isEmpty() && upper.front().isUpper() && !QStringView(u".!?").contains(upper.back()) &&
           lower.front().isLower();
}

/// The two parts of a cell whose row a page break divides.
struct DividedCell
{
    Cell *upper = nullptr;
    const Cell *lower = nullptr;
};

// The cells with text in that row of `next`, if the row is the rest of the last row of `last`: each of these texts goes
// on from the cell above it. The other cells of the row, such as short names and numbers, are complete above.
std::vector<DividedCell> dividedCells(Table &last, const Table &next, int row)
{
    std::vector<DividedCell> divided;
    for (const Cell &cell : next.cells) {
        const QString lower = cell.row == row ? plainText(runsOf(cell)).simplified() : QString();
        if (lower.isEmpty()) {
            continue;
        }
        const auto above = std::find_if(last.cells.begin(), last.cells.end(), [&](const Cell &other) {
            return other.row + other.rowSpan == last.rows() && other.column == cell.column &&
                   other.columnSpan == cell.columnSpan;
        });
        if (above == last.cells.end() || cell.rowSpan > 1 || !goesOn(plainText(runsOf(*above)).simplified(), lower)) {
            return {};
        }
        divided.push_back({&*above, &cell});
    }
    return divided;
}

// Sets what stands between the parts of the cells.
void joinTexts(const std::vector<DividedCell> &cells)
{
    for (const DividedCell &cell : cells) {
        const bool hyphen =
            endsInHyphen(plainText(runsOf(*cell.upper)).trimmed(), plainText(runsOf(*cell.lower)).trimmed());
        cell.upper->paragraphs.back().lines.back().words.back().separator =
            hyphen ? Separator::Hyphen : Separator::Space;
    }
}

} // namespace

void markTableContinuations(Document &document)
{
    Part before;
    Table *first = nullptr; // the part with which the table begins that `before` belongs to
    for (Page &page : document.pages) {
        const Part next = tableAtStart(page);
        if (before.table && next.table && before.table->columns() == next.table->columns() &&
            (!next.title || (before.title && shareLabel(*before.title, *next.title)))) {
            const int repeated = repeatedRows(*first, *next.table);
            if (repeated > 0 || sameEdges(*before.table, *next.table)) {
                next.table->continuesPrevious = true;
                next.table->headerRows = repeated;
                const std::vector<DividedCell> divided = dividedCells(*before.table, *next.table, repeated);
                next.table->continuesRow = !divided.empty();
                joinTexts(divided);
                first->headerRows = std::max(first->headerRows, repeated);
            }
        }
        const Part last = tableAtEnd(page);
        const bool goesOn = last.table && last.table == next.table && last.table->continuesPrevious;
        first = goesOn ? first : last.table;
        before = {last.table, goesOn && !last.title ? before.title : last.title};
    }
}

} // namespace quorra::model
