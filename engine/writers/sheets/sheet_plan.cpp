// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet_plan.h"

#include "cell_repairs.h"
#include "document/page_walk.h"
#include "document/rotation.h"
#include "sheet_layout.h"
#include "sheet_tables.h"
#include "tab_columns.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace quorra::office {

namespace {

struct Thresholds
{
    double maxHeadHeight = 240;      ///< points; higher rows at the top would leave no room for those that scroll
    double maxBackdropShare = 0.3;   ///< of the page; a larger picture behind text is its backdrop
    std::size_t minDividedLines = 2; ///< lines; the tab of a single line makes no columns
};
constexpr Thresholds thresholds;

/// Returns the table at the end of a page, or null.
const model::Table *lastTable(const model::Page &page)
{
    const model::Table *last = nullptr;
    forEachBlock(page, [&](const model::Block &block) { last = block.table() ? block.table() : last; });
    return last;
}

/// Returns whether most of the text of the page is right-to-left.
bool isRightToLeft(const model::Page &page)
{
    std::size_t all = 0;
    std::size_t rightToLeft = 0;
    forEachParagraph(page, [&](const model::Paragraph &paragraph) {
        all += paragraph.lines.size();
        rightToLeft += paragraph.rightToLeft ? paragraph.lines.size() : 0;
    });
    return 2 * rightToLeft > all;
}

/// Returns whether the picture is behind the text of its page.
bool isBackdrop(const model::Figure &figure, const model::Page &page)
{
    const double area = figure.box.width() * figure.box.height();
    return figure.behindText && area > thresholds.maxBackdropShare * page.width * page.height;
}

bool isBeside(const Box &a, const Box &b)
{
    const bool sameHeight = std::min(a.bottom, b.bottom) > std::max(a.top, b.top);
    return sameHeight && (a.right <= b.left || b.right <= a.left);
}

/// Adds the figure to the band that ends the list if it is beside its pictures, otherwise as a band of its own.
void addFigure(std::vector<SheetBand> &bands, const model::Figure &figure)
{
    auto *last = bands.empty() ? nullptr : std::get_if<PictureBand>(&bands.back());
    const bool beside =
        last && std::all_of(last->figures.begin(), last->figures.end(), [&](const model::Figure *other) {
            return isBeside(other->box, figure.box);
        });
    if (!beside) {
        last = &std::get<PictureBand>(bands.emplace_back(PictureBand{}));
    }
    last->figures.push_back(&figure);
    last->box = united(last->box, figure.box);
}

/// Returns a paragraph with the labels of a figure, one after the other.
model::Paragraph labelText(const model::Figure &figure)
{
    model::Paragraph text;
    for (const model::Paragraph &label : figure.labels) {
        for (const model::Line &line : label.lines) {
            text.lines.push_back(line);
            if (!line.words.empty()) {
                text.lines.back().words.back().separator = model::Separator::Space;
            }
        }
    }
    return text;
}

/// Returns the bands with an empty row above and below each table and picture.
std::vector<SheetBand> withGaps(std::vector<SheetBand> bands)
{
    std::vector<SheetBand> spaced;
    for (SheetBand &band : bands) {
        const bool text = std::holds_alternative<TextBand>(band);
        if (!spaced.empty() && (!text || !std::holds_alternative<TextBand>(spaced.back()))) {
            spaced.emplace_back(GapBand{});
        }
        spaced.push_back(std::move(band));
    }
    return spaced;
}

/// Returns whether the paragraph needs more room than its own cell: only a single line of left-aligned text may extend
/// over the empty cells beside it.
bool needsSpan(const model::Paragraph &paragraph, std::size_t rows)
{
    return rows > 1 || paragraph.lines.size() > 1 || paragraph.alignment != model::Alignment::Left ||
           paragraph.shading || paragraph.borderAbove.line.width > 0 || paragraph.borderBelow.line.width > 0;
}

/// Returns the box around the columns of the page.
Box textBox(const model::Page &page)
{
    Box box;
    for (const model::Section &section : page.sections) {
        for (const Box &column : section.columns) {
            box = united(box, column);
        }
    }
    return box;
}

double widestColumn(const model::Page &page)
{
    double width = 0;
    for (const model::Section &section : page.sections) {
        for (const Box &column : section.columns) {
            width = std::max(width, column.width());
        }
    }
    return width;
}

/// Divides lines with tabs into their parts, which get columns where they stand on the page.
void divideLines(SheetPlan &plan, const model::Page &page, bool hasTables)
{
    std::vector<TextBand *> bands;
    std::vector<std::vector<model::Paragraph>> lines;
    for (SheetBand &band : plan.bands) {
        if (auto *text = std::get_if<TextBand>(&band)) {
            std::vector<model::Paragraph> parts = tabParts(*text->parts.front().paragraph);
            if (!parts.empty()) {
                bands.push_back(text);
                lines.push_back(std::move(parts));
            }
        }
    }
    const double left = textBox(page).left;
    if (!hasTables && lines.size() >= thresholds.minDividedLines) {
        plan.columnWidths =
            columnsFromParts(lines, left, std::accumulate(plan.columnWidths.begin(), plan.columnWidths.end(), 0.0));
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::vector<PartColumns> places = columnsForParts(lines[i], left, plan.columnWidths);
        bands[i]->parts.clear();
        for (std::size_t k = 0; k < lines[i].size(); ++k) {
            const model::Paragraph &part = plan.texts.emplace_back(std::move(lines[i][k]));
            bands[i]->parts.push_back({&part, places[k].column, places[k].span});
        }
    }
}

/// Sets the heights of the rows, which depend on the widths of the columns.
void layOut(SheetPlan &plan)
{
    const std::vector<double> &widths = plan.columnWidths;
    const double all = std::accumulate(widths.begin(), widths.end(), 0.0);
    for (SheetBand &band : plan.bands) {
        if (auto *text = std::get_if<TextBand>(&band)) {
            const bool divided = text->parts.size() > 1;
            for (TextPart &part : text->parts) {
                const auto first = widths.begin() + part.column;
                const double width = divided ? std::accumulate(first, first + part.columnSpan, 0.0) : all;
                std::vector<double> rows = textRows(*part.paragraph, width);
                if (!divided && needsSpan(*part.paragraph, rows.size())) {
                    part.columnSpan = static_cast<int>(widths.size());
                }
                const auto height = [](const std::vector<double> &heights) {
                    return std::accumulate(heights.begin(), heights.end(), 0.0);
                };
                if (height(rows) > height(text->rowHeights)) {
                    text->rowHeights = std::move(rows);
                }
            }
        } else if (auto *picture = std::get_if<PictureBand>(&band)) {
            picture->rowHeights = pictureRows(picture->box.height());
        }
    }
}

/// Returns the rows down to the end of the head of the only table; 0 without such a head, or if it is too far down.
int headRows(const SheetPlan &plan)
{
    const auto isTable = [](const SheetBand &band) { return std::holds_alternative<TableBand>(band); };
    const auto only = std::find_if(plan.bands.begin(), plan.bands.end(), isTable);
    if (only == plan.bands.end() || std::any_of(only + 1, plan.bands.end(), isTable)) {
        return 0;
    }
    std::vector<double> heights;
    const auto add = [&heights](const std::vector<double> &rows) {
        heights.insert(heights.end(), rows.begin(), rows.end());
    };
    for (auto band = plan.bands.begin(); band != only; ++band) {
        if (const auto *text = std::get_if<TextBand>(&*band)) {
            add(text->rowHeights);
        } else if (const auto *picture = std::get_if<PictureBand>(&*band)) {
            add(picture->rowHeights);
        } else {
            add(pictureRows(0));
        }
    }
    const model::Table &table = std::get<TableBand>(*only).table;
    const std::vector<double> rows = sheetRows(table, plan.columnWidths);
    if (table.headerRows <= 0 || table.headerRows >= table.rows()) {
        return 0;
    }
    heights.insert(heights.end(), rows.begin(), rows.begin() + table.headerRows);
    const double height = std::accumulate(heights.begin(), heights.end(), 0.0);
    return height > thresholds.maxHeadHeight ? 0 : static_cast<int>(heights.size());
}

} // namespace

SheetPlanner::SheetPlanner(const model::Document &document)
{
    const model::Table *before = nullptr; // the first part of the table at the end of the previous page
    for (const model::Page &page : document.pages) {
        const model::Table *last = lastTable(page);
        const model::Table *endsPage = last;
        forEachBlock(page, [&](const model::Block &block) {
            const model::Table *table = block.table();
            if (table && table->continuesPrevious && before && continuesTable(*before, *table)) {
                m_chains[before].push_back(table);
                m_continuing.insert(table);
                endsPage = table == last ? before : endsPage;
                before = nullptr;
            }
        });
        before = endsPage;
    }
}

model::Table SheetPlanner::wholeTable(const model::Table &first, bool rightToLeft) const
{
    model::Table table = model::uprightTable(first);
    if (const auto chain = m_chains.find(&first); chain != m_chains.end()) {
        for (const model::Table *continuation : chain->second) {
            appendTable(table, model::uprightTable(*continuation));
        }
    }
    moveCurrencySigns(table);
    keepLineEnds(table);
    return rightToLeft ? mirroredTable(std::move(table)) : table;
}

bool SheetPlanner::isContinuation(const model::Page &page) const
{
    bool any = false;
    bool all = true;
    forEachBlock(page, [&](const model::Block &block) {
        any = true;
        all = all && block.table() && m_continuing.count(block.table()) > 0;
    });
    return any && all;
}

std::vector<SheetBand> SheetPlanner::contents(const model::Page &page, SheetPlan &plan) const
{
    std::vector<SheetBand> bands;
    std::vector<const model::Figure *> backdrops;
    const auto addText = [&bands](const model::Paragraph &paragraph) {
        if (!paragraph.lines.empty()) {
            bands.emplace_back(TextBand{{{&paragraph, 0, 1}}, {}});
        }
    };
    const auto addPicture = [&](const model::Figure &figure) {
        addFigure(bands, figure);
        if (!figure.labels.empty()) {
            addText(plan.texts.emplace_back(labelText(figure)));
        }
    };
    std::for_each(page.header.begin(), page.header.end(), addText);
    forEachBlock(page, [&](const model::Block &block) {
        if (const model::Paragraph *paragraph = block.paragraph()) {
            addText(*paragraph);
        } else if (const model::Table *table = block.table()) {
            if (table->rows() > 0 && table->columns() > 0 && m_continuing.count(table) == 0) {
                bands.emplace_back(TableBand{wholeTable(*table, plan.rightToLeft)});
            }
        } else if (const model::Figure *figure = block.figure()) {
            if (isBackdrop(*figure, page)) {
                backdrops.push_back(figure);
            } else {
                addPicture(*figure);
            }
        }
    });
    std::for_each(page.footer.begin(), page.footer.end(), addText);
    std::for_each(
        backdrops.begin(), backdrops.end(), [&addPicture](const model::Figure *figure) { addPicture(*figure); });
    return bands;
}

SheetPlan SheetPlanner::plan(const model::Page &page) const
{
    SheetPlan plan;
    plan.rightToLeft = isRightToLeft(page);
    plan.bands = withGaps(contents(page, plan));
    std::vector<const model::Table *> tables;
    for (const SheetBand &band : plan.bands) {
        if (const auto *table = std::get_if<TableBand>(&band)) {
            tables.push_back(&table->table);
        }
    }
    plan.columnWidths = withTextColumn(sheetColumns(tables), widestColumn(page));
    if (!plan.rightToLeft) {
        divideLines(plan, page, !tables.empty());
    }
    layOut(plan);
    plan.headRows = headRows(plan);
    return plan;
}

} // namespace quorra::office
