// SPDX-License-Identifier: GPL-3.0-or-later
#include "test_text.h"
#include "threshold_edges.h"

#include "analysis/tables/cell_columns.h"
#include "analysis/tables/column_alignment.h"
#include "analysis/tables/grid_columns.h"
#include "analysis/tables/lattice.h"
#include "analysis/tables/leaders.h"
#include "analysis/tables/ruled_table.h"
#include "analysis/tables/rulings.h"
#include "analysis/tables/stacked_rows.h"
#include "analysis/tables/table_content.h"
#include "analysis/tables/text_grid.h"
#include "analysis/tables/unruled_table.h"

using namespace quorra;
using namespace quorra::model;
using namespace thresholdEdges;

namespace {

using Words = std::vector<RawWord>;

constexpr double em = 10; // the font size of all text
constexpr QLatin1String text("words");
constexpr QLatin1String number("123");

Rule across(double y, double from, double to)
{
    return {from, y, to, y, 0.5, black};
}

Rule down(double x, double from, double to)
{
    return {x, from, x, to, 0.5, black};
}

// ---- rules

std::size_t horizontalCount(const std::vector<Rule> &rules)
{
    return mergeRules(rules).horizontal.size();
}

std::vector<Edge> rulingEdges()
{
    using rulings::thresholds;
    return {
        maximum(
            "both edges of a bar", thresholds.sameLine,
            [](double apart) {
                return horizontalCount({across(100, 0, 50), across(100 + apart, 0, 50)}) == 1;
            }),
        maximum(
            "gap between dashes", thresholds.maxDashGap,
            [](double gap) {
                return horizontalCount({across(100, 0, 50), across(100, 50 + gap, 99)}) == 1;
            }),
        minimum(
            "length of a rule", thresholds.minLength,
            [](double length) { return horizontalCount({across(100, 0, length)}) == 1; }),
        {"colour of a rule", double(thresholds.nearlyWhite) - 1, double(thresholds.nearlyWhite), true,
         [](double grey) {
             Rule rule = across(100, 0, 50);
             rule.colour = 0x010101U * static_cast<Colour>(grey);
             return horizontalCount({rule}) == 1;
         }},
    };
}

// ---- ruled tables

// Two rows and two columns, 100 points wide and 20 high each.
Rulings grid()
{
    return {
        {across(0, 0, 200), across(20, 0, 200), across(40, 0, 200)},
        {down(0, 0, 40), down(100, 0, 40), down(200, 0, 40)}};
}

std::vector<TableWords> tablesIn(const Rulings &rules, Words words)
{
    std::vector<TableWords> found = findRuledTables(rules, rules, refs(words));
    for (TableWords &table : found) {
        table.words.clear(); // they do not outlive this function
    }
    return found;
}

std::size_t cellCount(const Rulings &rules)
{
    return Lattice(rules).table().cells.size();
}

// A grid of 10 x 10 places with text in some of the cells.
bool isTableWithTexts(int count)
{
    Rulings rules;
    for (int i = 0; i <= 10; ++i) {
        rules.horizontal.push_back(across(20 * i, 0, 1000));
        rules.vertical.push_back(down(100 * i, 0, 200));
    }
    Words words;
    for (int i = 0; i < count; ++i) {
        const int row = i / 10;
        words.push_back(word(text, 100 * (i - 10 * row) + 10, 30, 20 * row + 15));
    }
    return !tablesIn(rules, std::move(words)).empty();
}

std::vector<Edge> ruledTableEdges()
{
    using ruledTables::thresholds;
    const auto &grids = lattice::thresholds;
    return {
        maximum(
            "gap between a rule and the one that it meets", thresholds.maxJointGap,
            [](double gap) {
                Rulings rules = grid();
                rules.horizontal.erase(rules.horizontal.begin() + 1);
                for (Rule &rule : rules.vertical) {
                    rule.y1 = gap; // reaches the lower rule, and nearly the upper one
                }
                return !tablesIn(rules, {word(text, 10, 30, 25), word(text, 110, 30, 25)}).empty();
            }),
        {"share of filled cells", 100 * thresholds.minFilledCells - 1, 100 * thresholds.minFilledCells, false,
         [](double count) { return isTableWithTexts(static_cast<int>(std::lround(count))); }},
        maximum(
            "double rules", grids.sameEdge,
            [](double apart) {
                Rulings rules = grid();
                rules.horizontal.push_back(across(40 + apart, 0, 200));
                return cellCount(rules) == 4;
            }),
        maximum(
            "lines past the outermost crossing line", grids.minOpenSide,
            [](double reach) {
                Rulings rules = grid();
                for (Rule &rule : rules.horizontal) {
                    rule.x2 += reach;
                }
                return cellCount(rules) == 4;
            }),
        minimum(
            "rule along a part of a cell's side", rulings::thresholds.minCoveredSide,
            [](double share) {
                Rulings rules = grid();
                rules.vertical[1] = down(100, 0, 20 + share * 20); // closes the lower cells or not
                return cellCount(rules) == 4;
            }),
    };
}

// A band of one row and three columns, with those baselines in the columns.
int rowsOf(const std::vector<std::vector<double>> &columns)
{
    TableWords found;
    const auto count = static_cast<int>(columns.size());
    Words words;
    for (const std::vector<double> &baselines : columns) {
        for (const double baseline : baselines) {
            words.push_back(word(number, 10, 15, baseline));
        }
    }
    const WordRefs all = refs(words);
    auto next = all.begin();
    for (int column = 0; column < count; ++column) {
        found.table.columnEdges.push_back(100 * column);
        Cell cell;
        cell.column = column;
        cell.box = {100.0 * column, 0, 100.0 * column + 100, 400};
        found.table.cells.push_back(cell);
        const auto end = next + static_cast<std::ptrdiff_t>(columns[static_cast<std::size_t>(column)].size());
        found.words.emplace_back(next, end);
        next = end;
    }
    found.table.columnEdges.push_back(100 * count);
    found.table.rowEdges = {0, 400};
    splitAlignedLines(found);
    return found.table.rows();
}

// The first so many baselines of a column.
std::vector<double> baselines(long count)
{
    std::vector<double> values(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = 20 + 14 * static_cast<double>(i);
    }
    return values;
}

std::vector<Edge> splitEdges()
{
    using splitRows::thresholds;
    return {
        fewest(
            "lines of the fullest cell", thresholds.minLines,
            [](double count) {
                const std::vector<double> both = baselines(std::lround(count));
                return rowsOf({both, both}) > 1;
            }),
        maximum(
            "baselines of one row", thresholds.sameBaseline,
            [](double apart) {
                return rowsOf({{20, 60, 100}, {20 + apart, 60 + apart, 100 + apart}}) == 3;
            }),
        {"places with a line", 20 * thresholds.minFilled - 1, 20 * thresholds.minFilled, false,
         [](double count) { // ten baselines in two columns
             return rowsOf({baselines(10), baselines(std::lround(count) - 10)}) == 10;
         }},
    };
}

// A row of two cells, 200 points wide each, with those words in them.
bool areSeveralRows(Words left, Words right)
{
    TableWords found;
    found.table.columnEdges = {0, 200, 400};
    found.table.rowEdges = {0, 400};
    for (int column = 0; column < 2; ++column) {
        Cell cell;
        cell.column = column;
        cell.box = {200.0 * column, 0, 200.0 * column + 200, 400};
        found.table.cells.push_back(cell);
    }
    found.words = {refs(left), refs(right)};
    return holdsSeveralRows(found);
}

// So many texts below one another.
Words stackOf(const QString &each, double left, long count)
{
    Words words;
    for (const double baseline : baselines(count)) {
        words.push_back(word(each, left, 20, baseline));
    }
    return words;
}

std::vector<Edge> stackEdges()
{
    using stackedRows::thresholds;
    const QString capitalised = QStringLiteral("Words");
    return {
        {"lines of words", thresholds.minLinesOfWords - 1, thresholds.minLinesOfWords, false,
         [=](double count) {
             return areSeveralRows(
                 stackOf(capitalised, 10, std::lround(count)), stackOf(capitalised, 210, std::lround(count)));
         }},
        {"keys of ten numbers", 10 * thresholds.minKeys - 1, 10 * thresholds.minKeys, false,
         [](double count) { return areSeveralRows(stackOf(text, 10, std::lround(count)), stackOf(number, 210, 10)); }},
        minimum(
            "blank before a word that did not wrap", thresholds.minBlank,
            [](double blank) {
                Words keys = stackOf(text, 10, 2);
                keys.front().box.right = 190 - 20 - blank * em;
                return areSeveralRows(std::move(keys), stackOf(number, 210, 2));
            }),
    };
}

// ---- content of cells

// A table of one cell, 200 points wide and 20 high.
Table cellWith(Words words, const std::vector<Fill> &fills = {})
{
    static StyleTable styles;
    TableWords found;
    found.table.columnEdges = {0, 200};
    found.table.rowEdges = {0, 20};
    found.table.box = {0, 0, 200, 20};
    found.table.ruled = true;
    Cell cell;
    cell.box = found.table.box;
    found.table.cells = {cell};
    found.words = {refs(words)};
    return finishedTable(std::move(found), fills, styles);
}

Alignment alignmentOf(double left, double right)
{
    return cellWith({word(text, left, 200 - left - right, 15)}).cells.front().paragraphs.front().alignment;
}

bool hasBackground(double wide, double high)
{
    const Fill fill{{100 - wide / 2, 10 - high / 2, 100 + wide / 2, 10 + high / 2}, 0xc0c0c0};
    return cellWith({word(text, 10, 30, 15)}, {fill}).cells.front().background.has_value();
}

// A form's lines and notes beside them, that far away.
bool hasMarginNotes(int lines, int notes, double gap, double offset)
{
    Words words;
    for (int i = 0; i < lines; ++i) {
        words.push_back(word(text, 100, 200, 100 + 14 * i));
    }
    for (int i = 0; i < notes; ++i) {
        words.push_back(word(text, 0, 100 - gap * em, 100 + 14 * i + offset * em));
    }
    return cellColumns(refs(words), {0, 80, 300, 400}).size() == 2;
}

// The number of right-aligned texts in a column of which so many end at the same place.
bool isRightAligned(int agreeing, int all)
{
    Table table;
    table.ruled = true;
    table.columnEdges = {0, 200};
    for (int i = 0; i < all; ++i) {
        Cell cell;
        cell.row = i;
        Paragraph paragraph = testText::paragraphOf(text);
        const double right = i < agreeing ? 180 : 100 + 7 * i;
        paragraph.box = {right - 20 - 5 * i, 20.0 * i, right, 20.0 * i + 10};
        cell.paragraphs = {paragraph};
        table.cells.push_back(cell);
        table.rowEdges.push_back(20 * i);
    }
    table.rowEdges.push_back(20 * all);
    alignColumns(table);
    return table.cells.front().paragraphs.front().alignment == Alignment::Right;
}

std::vector<Edge> contentEdges()
{
    using tableContent::thresholds;
    const auto &columns = marginNotes::thresholds;
    const auto &alignment = columnAlignment::thresholds;
    return {
        maximum(
            "text off the middle of its cell", thresholds.centredTolerance,
            [](double share) { return alignmentOf(50 + share * 200, 50) == Alignment::Centre; }),
        minimum(
            "space before centred text", thresholds.minPadding,
            [](double space) { return alignmentOf(space, space) == Alignment::Centre; }),
        maximum(
            "width of a background", thresholds.maxFill, [](double share) { return hasBackground(share * 200, 20); }),
        minimum(
            "height of a background", thresholds.minFillHeight,
            [](double share) { return hasBackground(200.0, share * 20); }),
        fewest(
            "lines beside margin notes", columns.minTextLines,
            [](double count) { return hasMarginNotes(static_cast<int>(count), 4, 2.0, 0.5); }),
        fewest(
            "margin notes", columns.minNotes,
            [](double count) { return hasMarginNotes(12, static_cast<int>(count), 2.0, 0.5); }),
        minimum("gap after margin notes", columns.minGap, [](double gap) { return hasMarginNotes(12, 4, gap, 0.5); }),
        minimum(
            "baselines of margin notes", columns.sameBaseline,
            [](double offset) { return hasMarginNotes(12, 4, 2.0, offset); }),
        {"texts that agree in their right edges", 10 * alignment.minShare - 1, 10 * alignment.minShare, false,
         [](double count) { return isRightAligned(static_cast<int>(std::lround(count)), 10); }},
        fewest(
            "texts that agree", alignment.minTexts,
            [](double count) { return isRightAligned(static_cast<int>(count), static_cast<int>(count)); }),
    };
}

// ---- tables without rules around their cells

constexpr int usualRows = 4;

// A table of that many rows: a name and two numbers each, the columns `gap` em apart.
Words rowsWithNumbers(int rows, double gap = 5, double step = 14)
{
    Words words;
    for (int i = 0; i < rows; ++i) {
        const double y = 100 + step * i;
        words.push_back(word(text, 0, 40, y));
        words.push_back(word(number, 40 + gap * em, 15, y));
        words.push_back(word(number, 55 + 2 * gap * em, 15, y));
    }
    return words;
}

std::vector<std::pair<int, int>> sizesOfTables(Words words, const std::vector<Rule> &rules = {})
{
    std::vector<std::pair<int, int>> sizes;
    for (const UnruledTable &table : findUnruledTables(textLinesOf(refs(words)), {rules, {}})) {
        sizes.emplace_back(table.found.table.rows(), table.found.table.columns());
    }
    return sizes;
}

bool isUnruledTable(Words words)
{
    return !sizesOfTables(std::move(words)).empty();
}

// Rows of texts, each of several words close together.
bool isTableOfTexts(int rows, int wordsInCell)
{
    Words words;
    for (int i = 0; i < rows; ++i) {
        for (int cell = 0; cell < 3; ++cell) {
            for (int k = 0; k < wordsInCell; ++k) {
                words.push_back(word(text, 220 * cell + 22 * k, 20, 100 + 14 * i));
            }
        }
    }
    return isUnruledTable(std::move(words));
}

// Four lines of three words with blanks of so many points, each second line shorter by the last value.
bool isTableOfThreeWords(double firstBlank, double secondBlank, double shorter)
{
    Words words;
    for (int i = 0; i < usualRows; ++i) {
        const double y = 100 + 14 * i;
        words.push_back(word(text, 0, 40, y));
        words.push_back(word(text, 40 + firstBlank, 40, y));
        words.push_back(word(text, 80 + firstBlank + secondBlank, i % 2 == 0 ? 40 : 40 - shorter, y));
    }
    return isUnruledTable(std::move(words));
}

// A head between rules and so many rows of two lines, with many words in two columns.
bool isTableOfSentences(long rows)
{
    Words words{word(text, 0, 20, 100), word(text, 220, 20, 100)};
    double y = 100;
    for (long row = 0; row < rows; ++row) {
        y += 8;
        for (int line = 0; line < 2; ++line) {
            y += 12;
            for (int i = 0; i < 8; ++i) {
                words.push_back(word(text, 24 * i, 20, y));
                words.push_back(word(text, 220 + 24 * i, 20, y));
            }
        }
    }
    return !sizesOfTables(std::move(words), {across(88, 0, 410), across(105, 0, 410)}).empty();
}

std::vector<Edge> justifiedEdges()
{
    const auto &grids = textGrid::thresholds;
    return {
        maximum(
            "difference of justified blanks", grids.evenBlanks,
            [](double more) { return !isTableOfThreeWords(20, 20 + more, 0); }),
        maximum(
            "width of justified blanks", grids.maxJustifiedBlank,
            [](double blank) { return !isTableOfThreeWords(blank * em, blank * em, 0); }),
        maximum(
            "ends of justified lines", grids.sameMargin,
            [](double shorter) { return !isTableOfThreeWords(20, 20, shorter); }),
        fewest(
            "rows of several lines that are set apart", grids.minRowsSetApart,
            [](double count) { return isTableOfSentences(std::lround(count)); }),
        maximum(
            "heading of a group left or right of its rows", unruledTables::thresholds.maxOutdent,
            [](double shift) {
                Words words = rowsWithNumbers(3);
                words.push_back(word(text, shift * em, 40, 168)); // farther below than rows are apart
                for (RawWord each : rowsWithNumbers(3)) {
                    each.baseline += 82;
                    each.box.top += 82;
                    each.box.bottom += 82;
                    words.push_back(each);
                }
                return sizesOfTables(std::move(words)).size() == 1;
            }),
    };
}

std::vector<Edge> unruledTableEdges()
{
    using unruledTables::thresholds;
    const auto &grids = textGrid::thresholds;
    return {
        minimum(
            "gap between cells", gridColumns::thresholds.minCellGap,
            [](double gap) { return isUnruledTable(rowsWithNumbers(usualRows, gap)); }),
        maximum(
            "distance of rows that line up", thresholds.maxAlignedStep,
            [](double step) { return isUnruledTable(rowsWithNumbers(usualRows, 5, step * em)); }),
        maximum(
            "distance of rows at a rule", thresholds.maxRuledStep,
            [](double step) {
                Words words = rowsWithNumbers(2);
                for (const RawWord &each : rowsWithNumbers(2)) {
                    words.push_back(each);
                    words.back().baseline += 14 + step * em;
                    words.back().box.top += 14 + step * em;
                    words.back().box.bottom += 14 + step * em;
                }
                const auto sizes = sizesOfTables(std::move(words), {across(120, 0, 200)});
                return sizes.size() == 1 && sizes.front().first == 4;
            }),
        fewest(
            "rows of a table of numbers", static_cast<std::size_t>(grids.minRowsOfNumbers),
            [](double count) { return isUnruledTable(rowsWithNumbers(static_cast<int>(count))); }),
        fewest(
            "rows of a table of words", static_cast<std::size_t>(grids.minRowsOfText),
            [](double count) { return isTableOfTexts(static_cast<int>(count), 1); }),
        most(
            "words in a cell of a table of words", static_cast<std::size_t>(grids.maxWordsOfText),
            [](double count) { return isTableOfTexts(usualRows, static_cast<int>(count)); }),
        most(
            "lines of one segment in a table", thresholds.maxSingles,
            [](double count) {
                Words words = rowsWithNumbers(3);
                double y = words.back().baseline;
                for (int i = 0; i < static_cast<int>(count); ++i) {
                    words.push_back(word(text, 0, 40, y += 14));
                }
                for (int i = 0; i < 3; ++i) {
                    y += 14;
                    words.push_back(word(text, 0, 40, y));
                    words.push_back(word(number, 90, 15, y));
                    words.push_back(word(number, 155, 15, y));
                }
                return sizesOfTables(std::move(words)).size() == 1;
            }),
        most(
            "lines with leaders", 2, // of six, the share of thresholds.maxLeaderLines
            [](double count) {
                Words words = rowsWithNumbers(6);
                for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
                    words[3 * i + 1].text = QStringLiteral("......");
                }
                return isUnruledTable(std::move(words));
            }),
        fewest(
            "dots of a leader", static_cast<std::size_t>(leaders::thresholds.minDots),
            [](double count) {
                Words words = rowsWithNumbers(usualRows);
                for (std::size_t i = 1; i < words.size(); i += 3) {
                    words[i].text = QString(static_cast<int>(count), QLatin1Char('.'));
                }
                return !isUnruledTable(std::move(words));
            }),
        maximum(
            "length of the rule under a heading", grids.minFullRule,
            [](double share) {
                Words words{word(text, 20, 40, 86)};
                for (const RawWord &each : rowsWithNumbers(usualRows)) {
                    words.push_back(each);
                }
                const double wide = 170;
                const double half = share * wide / 2;
                const auto sizes = sizesOfTables(std::move(words), {across(89, 100 - half, 100 + half)});
                return sizes.size() == 1 && sizes.front().first == usualRows + 1;
            }),
    };
}

} // namespace

class AnalysisTableEdgesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rules_data() { addRows(rulingEdges()); }
    void rules() { checkRow(rulingEdges()); }
    void ruledTables_data() { addRows(ruledTableEdges()); }
    void ruledTables() { checkRow(ruledTableEdges()); }
    void splitRows_data() { addRows(splitEdges()); }
    void splitRows() { checkRow(splitEdges()); }
    void stackedRows_data() { addRows(stackEdges()); }
    void stackedRows() { checkRow(stackEdges()); }
    void justifiedText_data() { addRows(justifiedEdges()); }
    void justifiedText() { checkRow(justifiedEdges()); }
    void contentOfCells_data() { addRows(contentEdges()); }
    void contentOfCells() { checkRow(contentEdges()); }
    void unruledTables_data() { addRows(unruledTableEdges()); }
    void unruledTables() { checkRow(unruledTableEdges()); }
};

QTEST_APPLESS_MAIN(AnalysisTableEdgesTest)
#include "analysis_table_edges_test.moc"
