// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "page_layout.h"
#include "page_styles.h"
#include "word/flow_form.h"

#include <vector>

// The plan of flowing text. It contains everything that fitting the text to its pages and writing it requires. The
// document must outlive its plan. All lengths are in points.
namespace quorra::office {

/// A block of the text.
struct FlowItem
{
    const model::Block *block = nullptr;
    Box column;      ///< its column on the page
    double left = 0; ///< edges of its area: a column, or the page within its margins
    double right = 0;
    bool beginsColumn = false;  ///< it follows a column break
    double spaceAbove = 0;      ///< between the previous block of its area and its first line, table or picture
    double lineHeight = 0;      ///< of text: height of its lines; 0 for the natural height of the font
    int lines = 0;              ///< of text: the expected number of lines
    double height = 0;          ///< of a table or picture, and what a line below a paragraph takes
    bool behindText = false;    ///< a picture at its position on the page, which takes up no room in the text
    bool sideways = false;      ///< text that runs up or down beside the page's text, likewise
    bool beside = false;        ///< a picture to the right of the previous item, another picture
    bool headsContents = false; ///< the heading above a table of contents, which does not list it
    Marks marks;                ///< bookmarks and comments at its beginning

    /// Whether it is at its position on the page and takes up no room in the text.
    bool isPlaced() const { return behindText || sideways; }
};

/// A section of a page.
struct FlowSection
{
    const model::Section *section = nullptr;
    bool inColumns = false; ///< its columns are kept
    double left = 0;        ///< edges of such columns: that of the first one and that of the last one
    double right = 0;
    double spaceAbove = 0; ///< of such columns
    std::vector<FlowItem> items;
};

/// A page of the document.
struct FlowPage
{
    const model::Page *page = nullptr;
    Margins margins;
    PageStyle style;                   ///< its headers and footers, where it begins a page
    bool newPage = true;               ///< begins a page of the text
    double room = 0;                   ///< height for the page's text
    Marks marks;                       ///< bookmarks and comments at its beginning
    std::vector<FlowSection> sections; ///< none for a scanned page
};

/// Returns the expected number of lines of the paragraph in an area of this width, in the fonts that a word processor
/// is likely to have and without hyphenation.
int likelyLines(const model::Paragraph &paragraph, double width);

/// Returns the plan of a page with these margins.
FlowPage planPage(const model::Page &page, const Margins &margins, const FlowForm &form);

/// Returns the plans of all pages.
std::vector<FlowPage> planFlow(const model::Document &document, const FlowForm &form);

} // namespace quorra::office
