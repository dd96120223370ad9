// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/text_writer.h"

#include "document/text.h"

#include <QStringList>

#include <algorithm>

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
};
constexpr Thresholds thresholds;

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
        QString text = model::plainText(line);
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

std::vector<CellText> cellTexts(const Table &table)
{
    std::vector<CellText> texts;
    for (const model::Cell &cell : table.cells) {
        CellText text{cell.row, cell.column, cell.columnSpan, false, {}, 0};
        for (const Paragraph &paragraph : cell.paragraphs) {
            text.lines += paragraphLines(paragraph);
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

/// Returns whether both are items of a list without space in between, which get no empty line.
bool isSameList(const Block *before, const Block &block)
{
    const Paragraph *entry = block.paragraph();
    const Paragraph *last = before ? before->paragraph() : nullptr;
    if (!entry || !last || !entry->listItem || !last->listItem) {
        return false;
    }
    const std::vector<model::Run> runs = model::runsOf(*entry);
    return !runs.empty() && entry->spaceBefore < thresholds.maxListSpace * runs.front().style.size;
}

} // namespace

QString tableAsText(const Table &table)
{
    const std::vector<CellText> texts = cellTexts(table);
    const std::vector<qsizetype> starts = columnStarts(texts, table.columns());
    QString all;
    for (int row = 0; row < table.rows(); ++row) {
        qsizetype height = 0;
        for (const CellText &text : texts) {
            height = text.row == row ? std::max(height, text.lines.size()) : height;
        }
        for (qsizetype i = 0; i < height; ++i) {
            QString line;
            for (const CellText &text : texts) {
                if (text.row != row || i >= text.lines.size()) {
                    continue;
                }
                const int behind = text.column + text.columnSpan;
                const auto afterLast = static_cast<std::size_t>(behind);
                const qsizetype end = starts[afterLast] - thresholds.columnGap;
                const qsizetype start = starts[static_cast<std::size_t>(text.column)];
                put(line, text.lines[i], text.right ? std::max(start, end - text.lines[i].size()) : start);
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
    const Block *before = nullptr;
    for (const model::Section &section : page.sections) {
        for (const Block &block : section.blocks) {
            append(text, blockText(block), isSameList(before, block));
            before = &block;
        }
    }
    addPageHeaders(page.footer);
    return text;
}

} // namespace quorra
