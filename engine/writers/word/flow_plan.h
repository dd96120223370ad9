// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "page_layout.h"
#include "word/flow_form.h"

#include <vector>

// What a flowing text is made of. Everything that fitting it to its pages and writing it need to know about a block is
// found here, once. The document must live longer than its plan. All lengths in points.
namespace quorra::office {

/// A block of the text.
struct FlowItem
{
    const model::Block *block = nullptr;
    Box column;      ///< its column on the page
    double left = 0; ///< sides of the strip that it stands in: a column, or the page between its margins
    double right = 0;
    bool beginsColumn = false; ///< a column break stands before it
    double spaceAbove = 0;     ///< between what stands above it in its strip and its first line, table or picture
    double lineHeight = 0;     ///< of text: fixed height of its lines, 0 for the font's own
    int lines = 0;             ///< of text: how many it is likely to fill
    double height = 0;         ///< of a table or picture
    bool behindText = false;   ///< a picture that stands at its place on the page and takes up no room in the text
};

/// A band of a page.
struct FlowSection
{
    const model::Section *section = nullptr;
    bool inColumns = false; ///< its columns stand beside one another
    double spaceAbove = 0;  ///< of such columns
    std::vector<FlowItem> items;
};

/// A page of the document.
struct FlowPage
{
    const model::Page *page = nullptr;
    Margins margins;
    bool newPage = true;               ///< begins a page of the text
    double room = 0;                   ///< height for the page's text
    std::vector<FlowSection> sections; ///< none for a scanned page
};

/// How many lines the paragraph fills in a strip of this width, in the fonts that a word processor is likely to have
/// and without hyphens; at least 1, and 1 for a line that stands alone.
int likelyLines(const model::Paragraph &paragraph, double width);

/// The plan of one page with these margins.
FlowPage planPage(const model::Page &page, const Margins &margins, const FlowForm &form);

/// The plans of all pages.
std::vector<FlowPage> planFlow(const model::Document &document, const FlowForm &form);

} // namespace quorra::office
