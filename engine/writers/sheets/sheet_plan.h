// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QString>

#include <deque>
#include <map>
#include <set>
#include <variant>
#include <vector>

// What a sheet contains, from top to bottom. Pure functions on the document model; lengths in points.
namespace quorra::office {

/// A text in some columns of a row.
struct TextPart
{
    const model::Paragraph *paragraph = nullptr;
    int column = 0;
    int columnSpan = 1;
};

/// A paragraph, in the first column or, if it is a line with tabs, in several. Its text wraps over several columns, and
/// extends over several rows if it is higher than a row can be.
struct TextBand
{
    std::vector<TextPart> parts; ///< from left to right; at least one
    std::vector<double> rowHeights;
};

/// A table in columns of its own, beginning with the first.
struct TableBand
{
    model::Table table;
};

/// Pictures next to one another.
struct PictureBand
{
    std::vector<const model::Figure *> figures;
    Box box; ///< around them, on the page
    std::vector<double> rowHeights;
};

/// An empty row, which separates a table from what is above and below it.
struct GapBand
{
};

using SheetBand = std::variant<TextBand, TableBand, PictureBand, GapBand>;

struct SheetPlan
{
    std::vector<double> columnWidths;
    std::vector<SheetBand> bands;
    bool rightToLeft = false;           ///< the first column is at the right edge
    int headRows = 0;                   ///< rows at the top of the sheet that remain visible when it is scrolled
    std::deque<model::Paragraph> texts; ///< paragraphs that only the sheet has: labels of figures, parts of lines
};

/// Plans the sheets of a document, page by page. The document must outlive the plans.
class SheetPlanner
{
public:
    explicit SheetPlanner(const model::Document &document);

    /// Returns whether the page contains only the continuation of a table, which is whole on the sheet of its first
    /// page. Such a page has no sheet.
    bool isContinuation(const model::Page &page) const;

    /// Returns what is on the sheet of this page.
    SheetPlan plan(const model::Page &page) const;

private:
    using TableChain = std::vector<const model::Table *>;

    model::Table wholeTable(const model::Table &first, bool rightToLeft) const;
    std::vector<SheetBand> contents(const model::Page &page, SheetPlan &plan) const;

    std::map<const model::Table *, TableChain> m_chains; ///< the tables that continue one, in their order
    std::set<const model::Table *> m_continuing;         ///< tables that are part of another one
};

} // namespace quorra::office
