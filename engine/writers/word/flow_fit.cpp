// SPDX-License-Identifier: GPL-3.0-or-later
#include "flow_fit.h"

#include "odf/line_layout.h"
#include "odf/odf_paragraphs.h"
#include "odf/odf_runs.h"

#include <algorithm>

namespace quorra::office {

namespace {

struct Thresholds
{
    double minLines = 0.9;   ///< share of the line height on the page; closer lines are hard to read
    double minSpace = 0.5;   ///< share of the space on the page; less hides what it separates
    double enoughSpace = 12; ///< points; a space of a line separates well, however wide it is on the page
    double doubt = 0.08;     ///< share of the lines' heights; how the text wraps is only estimated
    double around = 3;       ///< points; that a table or picture takes beyond its own height
};
constexpr Thresholds thresholds;

double reducedSpace(double space, const Fit &fit)
{
    const double least = std::min(thresholds.minSpace * space, thresholds.enoughSpace);
    return least + fit.spaces * (space - least);
}

/// Returns the height of a line of the item, which must be a paragraph.
double lineHeightOf(const FlowItem &item, const Fit &fit)
{
    const double height =
        item.lineHeight > 0 ? fit.lines * item.lineHeight : lineHeights.usual * largestSize(*item.block->paragraph());
    return (1 + thresholds.doubt) * height;
}

/// Returns the height of the item without the space above it.
double heightOf(const FlowItem &item, const Fit &fit)
{
    if (item.block->paragraph()) {
        return item.lines * lineHeightOf(item, fit) + item.height;
    }
    return item.height > 0 ? item.height + thresholds.around : 0;
}

double heightWithSpace(const FlowItem &item, const Fit &fit)
{
    return item.isPlaced() ? 0 : reducedSpace(item.spaceAbove, fit) + heightOf(item, fit); // see anchorsOf()
}

/// Fills columns of this height one after the other.
class ColumnFiller
{
public:
    explicit ColumnFiller(double height) : m_height(height) {}

    void beginColumn()
    {
        if (m_filled > 0) {
            ++m_column;
            m_filled = 0;
        }
    }
    void addSpace(double height) { m_filled += height; }
    void addUndivided(double height)
    {
        if (m_filled + height > m_height) {
            beginColumn();
        }
        m_filled += height;
    }
    std::size_t columns() const { return m_column; }

private:
    double m_height;
    double m_filled = 0;
    std::size_t m_column = 1;
};

/// Returns whether the content of the section fits into its columns if these have this height.
bool fitsColumns(const FlowSection &section, const Fit &fit, double height)
{
    ColumnFiller filler(height);
    for (const FlowItem &item : section.items) {
        if (item.isPlaced()) {
            continue;
        }
        if (item.beginsColumn) {
            filler.beginColumn();
        }
        filler.addSpace(reducedSpace(item.spaceAbove, fit));
        const bool isText = item.block->paragraph() != nullptr;
        const int parts = isText ? item.lines : 1;
        const double part = isText ? lineHeightOf(item, fit) : heightOf(item, fit);
        for (int i = 0; i < parts; ++i) {
            filler.addUndivided(part);
        }
    }
    return filler.columns() <= section.section->columns.size();
}

/// Returns the largest value for which `fits` holds, if it holds for all smaller ones; `least` if it holds for none.
template <typename Condition>
double largest(double least, double most, const Condition &fits)
{
    constexpr int steps = 50; // far more exact than what is visible
    if (fits(most)) {
        return most;
    }
    for (int i = 0; i < steps; ++i) {
        const double middle = (least + most) / 2;
        (fits(middle) ? least : most) = middle;
    }
    return least;
}

/// Returns the height of columns that are balanced, as word processors do it, unless column breaks divide the text.
double columnsHeight(const FlowSection &section, const Fit &fit)
{
    double total = 0;
    double tallestLine = 0;
    std::size_t divided = 1;
    for (const FlowItem &item : section.items) {
        total += heightWithSpace(item, fit);
        divided += item.beginsColumn ? 1 : 0;
        if (item.block->paragraph()) {
            tallestLine = std::max(tallestLine, lineHeightOf(item, fit));
        }
    }
    const double height =
        total - largest(0, total, [&](double less) { return fitsColumns(section, fit, total - less); });
    return divided < section.section->columns.size() ? height + tallestLine : height; // balancing is not exact
}

/// Returns the height of the empty paragraphs for the section: before and after columns, and for placed items.
double anchorsOf(const FlowSection &section)
{
    const auto placed =
        std::count_if(section.items.begin(), section.items.end(), [](const FlowItem &item) { return item.isPlaced(); });
    return emptyParagraphHeight * static_cast<double>(placed + (section.inColumns ? 2 : 0));
}

double heightOf(const FlowPage &page, const Fit &fit)
{
    double height = 0;
    for (const FlowSection &section : page.sections) {
        height += reducedSpace(section.spaceAbove, fit) + anchorsOf(section);
        if (section.inColumns) {
            height += columnsHeight(section, fit);
            continue;
        }
        for (const FlowItem &item : section.items) {
            height += heightWithSpace(item, fit);
        }
    }
    return height;
}

} // namespace

Fit fitOf(const FlowPage &page)
{
    Fit fit;
    fit.spaces = largest(0, 1, [&](double spaces) { return heightOf(page, {1, spaces}) <= page.room; });
    fit.lines = largest(thresholds.minLines, 1, [&](double lines) {
        return heightOf(page, {lines, fit.spaces}) <= page.room;
    });
    return fit;
}

void fitToRoom(FlowPage &page)
{
    const Fit fit = fitOf(page);
    for (FlowSection &section : page.sections) {
        section.spaceAbove = reducedSpace(section.spaceAbove, fit);
        for (FlowItem &item : section.items) {
            item.spaceAbove = reducedSpace(item.spaceAbove, fit);
            item.lineHeight *= fit.lines;
        }
    }
}

} // namespace quorra::office
