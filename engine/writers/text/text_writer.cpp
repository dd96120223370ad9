// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/text_writer.h"

#include "document/text.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <vector>

namespace quorra {

namespace {

using model::Alignment;
using model::Block;
using model::Line;
using model::Paragraph;
using model::Table;

struct Thresholds
{
    int columnGap = 2;         ///< characters; between the columns of a table
    double maxListSpace = 0.5; ///< em; more space above a list item separates it from the previous one
    double evenSteps = 1;      ///< points; by which the distances of single lines that belong together differ
    double indentStep = 0.25;  ///< em; of a space, for the indents in the first column of a table
    qsizetype maxIndent = 12;  ///< spaces; of such an indent
};
constexpr Thresholds thresholds;

/// Replaces rows of dots, which fill the gaps of lines, by three of them.
QString withShortLeaders(QString text)
{
    if (!text.contains(QLatin1String("..")) && !text.contains(QLatin1String(". . "))) {
        return text.trimmed();
    }
    static const QRegularExpression dots(QStringLiteral(R"(\.{6,}|(?:\. ){5,}\.?)"));
    return text.replace(dots, QStringLiteral("... "))
        .replace(QStringLiteral("...  "), QStringLiteral("... "))
        .trimmed();
}

/// Returns the lines of a paragraph; a word hyphenated at a line end is completed on that line.
QStringList paragraphLines(const Paragraph &paragraph)
{
    QStringList lines;
    for (const std::vector<model::Run> &line : model::preformattedLines(paragraph)) {
        lines.append(model::plainText(line));
    }
    if (!lines.isEmpty()) {
        return lines;
    }
    bool hyphen = false;
    for (const Line &line : paragraph.lines) {
        QString text = withShortLeaders(model::plainText(line));
        if (hyphen && !lines.isEmpty()) {
            const auto space = text.indexOf(QLatin1Char(' '));
            lines.back().chop(1);
            lines.back() += space < 0 ? text : text.left(space);
            text = space < 0 ? QString() : text.mid(space + 1);
        }
        if (!text.isEmpty()) {
            lines.append(text);
        }
        hyphen = !line.words.empty() && line.words.back().separator == model::Separator::Hyphen;
    }
    return lines;
}

struct CellText
{
    int row = 0;
    int column = 0;
    int columnSpan = 1;
    bool right = false;
    QStringList lines;
    qsizetype width = 0;
};

/// Whether the indent of the paragraph means something: it is one of the texts in the first column of a table.
bool isStub(const model::Cell &cell, const Paragraph &paragraph)
{
    return cell.column == 0 && paragraph.alignment == Alignment::Left && paragraph.rotation == 0 &&
           !paragraph.rightToLeft && !paragraph.lines.empty();
}

/// Returns where the leftmost texts of the first column begin.
double leftOfStubs(const Table &table)
{
    double left = std::numeric_limits<double>::max();
    for (const model::Cell &cell : table.cells) {
        for (const Paragraph &paragraph : cell.paragraphs) {
            left = isStub(cell, paragraph) ? std::min(left, paragraph.box.left) : left;
        }
    }
    return left;
}

QString spaces(double indent, double size)
{
    const auto count = std::lround(std::max(0.0, indent) / (thresholds.indentStep * size));
    return QString(std::min<qsizetype>(count, thresholds.maxIndent), QLatin1Char(' '));
}

std::vector<CellText> cellTexts(const Table &table)
{
    const double left = leftOfStubs(table);
    std::vector<CellText> texts;
    for (const model::Cell &cell : table.cells) {
        CellText text{cell.row, cell.column, cell.columnSpan, false, {}, 0};
        for (const Paragraph &paragraph : cell.paragraphs) {
            const QString indent =
                isStub(cell, paragraph) ? spaces(paragraph.box.left - left, model::largestSize(paragraph)) : QString();
            for (const QString &line : paragraphLines(paragraph)) {
                text.lines += indent + line;
            }
            text.right = text.right || paragraph.alignment == Alignment::Right;
        }
        for (const QString &line : text.lines) {
            text.width = std::max(text.width, line.size());
        }
        texts.push_back(std::move(text));
    }
    return texts;
}

/// Returns the start of each column. Columns are as wide as their widest cell; a cell that spans several columns widens
/// the last of them if necessary.
std::vector<qsizetype> columnStarts(const std::vector<CellText> &texts, int columns)
{
    std::vector<qsizetype> widths(static_cast<std::size_t>(columns), 0);
    for (const CellText &text : texts) {
        if (text.columnSpan == 1) {
            auto &width = widths[static_cast<std::size_t>(text.column)];
            width = std::max(width, text.width);
        }
    }
    for (const CellText &text : texts) {
        const int last = text.column + text.columnSpan - 1;
        if (text.columnSpan > 1 && last + 1 < columns) {
            qsizetype sum = thresholds.columnGap * (text.columnSpan - 1);
            for (int c = text.column; c <= last; ++c) {
                sum += widths[static_cast<std::size_t>(c)];
            }
            widths[static_cast<std::size_t>(last)] += std::max<qsizetype>(0, text.width - sum);
        }
    }
    std::vector<qsizetype> starts{0};
    for (const qsizetype width : widths) {
        starts.push_back(starts.back() + (width > 0 ? width + thresholds.columnGap : 0));
    }
    return starts;
}

void put(QString &line, const QString &text, qsizetype at)
{
    if (!text.isEmpty()) {
        line = line.leftJustified(std::max(at, line.isEmpty() ? 0 : line.size() + 1));
        line += text;
    }
}

QString blockText(const Block &block)
{
    if (const Table *table = block.table()) {
        return tableAsText(*table);
    }
    QStringList lines;
    if (const Paragraph *paragraph = block.paragraph()) {
        lines = paragraphLines(*paragraph);
    } else if (const model::Figure *figure = block.figure()) {
        for (const Paragraph &label : figure->labels) {
            lines += paragraphLines(label);
        }
    }
    return lines.isEmpty() ? QString() : lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

void append(QString &page, const QString &text, bool close)
{
    if (!text.isEmpty()) {
        if (!page.isEmpty() && !close) {
            page += QLatin1Char('\n');
        }
        page += text;
    }
}

/// Returns the paragraph if it is a single line of running text, with its baseline on the page.
const Paragraph *singleLine(const Block *block)
{
    const Paragraph *paragraph = block ? block->paragraph() : nullptr;
    const bool isText = paragraph && (paragraph->role == model::Role::Body || paragraph->role == model::Role::ListItem);
    return isText && paragraph->lines.size() == 1 && paragraph->rotation == 0 ? paragraph : nullptr;
}

/// Returns the distance between the baselines of single lines; nothing if one of them is none, or above the other.
std::optional<double> stepBetween(const Block *before, const Block *after)
{
    const Paragraph *first = singleLine(before);
    const Paragraph *second = singleLine(after);
    if (!first || !second) {
        return std::nullopt;
    }
    const double step = second->lines.front().baseline - first->lines.front().baseline;
    return step > 0 ? std::optional(step) : std::nullopt;
}

/// The blocks of a page in reading order.
class Blocks
{
public:
    explicit Blocks(const model::Page &page)
    {
        for (const model::Section &section : page.sections) {
            for (const Block &block : section.blocks) {
                m_blocks.push_back(&block);
            }
        }
    }

    std::size_t size() const { return m_blocks.size(); }
    const Block *at(std::size_t i) const { return i < m_blocks.size() ? m_blocks[i] : nullptr; }

    /// Returns whether no empty line is above the block: it is an item of the same list or table of contents as the
    /// block before it, without space in between, or one of three single lines or more at even distances.
    bool isClose(std::size_t i) const { return i > 0 && (isSameList(*m_blocks[i - 1], *m_blocks[i]) || isEvenLine(i)); }

private:
    static bool isSameList(const Block &before, const Block &block)
    {
        const Paragraph *entry = block.paragraph();
        const Paragraph *last = before.paragraph();
        const auto isEntry = [](const Paragraph &each) { return each.listItem || !each.tabStops.empty(); };
        if (!entry || !last || !isEntry(*entry) || !isEntry(*last)) {
            return false;
        }
        const std::vector<model::Run> runs = model::runsOf(*entry);
        return !runs.empty() && entry->spaceBefore < thresholds.maxListSpace * runs.front().style.size;
    }

    bool isEvenLine(std::size_t i) const
    {
        const std::optional<double> step = stepBetween(at(i - 1), at(i));
        const std::optional<double> above = i > 1 ? stepBetween(at(i - 2), at(i - 1)) : std::nullopt;
        const std::optional<double> below = stepBetween(at(i), at(i + 1));
        const auto isEven = [&step](const std::optional<double> &other) {
            return step && other && std::abs(*step - *other) < thresholds.evenSteps;
        };
        return isEven(above) || isEven(below);
    }

    std::vector<const Block *> m_blocks;
};

} // namespace

QString tableAsText(const Table &table)
{
    const std::vector<CellText> texts = cellTexts(table);
    const std::vector<qsizetype> starts = columnStarts(texts, table.columns());
    std::vector<std::vector<const CellText *>> rows(static_cast<std::size_t>(table.rows()));
    for (const CellText &text : texts) {
        rows[static_cast<std::size_t>(text.row)].push_back(&text);
    }
    QString all;
    for (const std::vector<const CellText *> &row : rows) {
        qsizetype height = 0;
        for (const CellText *text : row) {
            height = std::max(height, text->lines.size());
        }
        for (qsizetype i = 0; i < height; ++i) {
            QString line;
            for (const CellText *text : row) {
                if (i >= text->lines.size()) {
                    continue;
                }
                const int behind = text->column + text->columnSpan;
                const auto afterLast = static_cast<std::size_t>(behind);
                const qsizetype end = starts[afterLast] - thresholds.columnGap;
                const qsizetype start = starts[static_cast<std::size_t>(text->column)];
                put(line, text->lines[i], text->right ? std::max(start, end - text->lines[i].size()) : start);
            }
            all += line + QLatin1Char('\n');
        }
    }
    return all;
}

QString pageAsText(const model::Page &page)
{
    QString text;
    const auto addPageHeaders = [&text](const std::vector<Paragraph> &paragraphs) {
        for (const Paragraph &paragraph : paragraphs) {
            append(text, blockText({paragraph, 0}), false);
        }
    };
    addPageHeaders(page.header);
    const Blocks blocks(page);
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        append(text, blockText(*blocks.at(i)), blocks.isClose(i));
    }
    addPageHeaders(page.footer);
    return text;
}

} // namespace quorra
