// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"
#include "base/geometry.h"
#include "document/file_facts.h"
#include "document/text_style.h"

#include <QString>

#include <cstddef>
#include <vector>

// Plain data: what one pass over a page of a PDF file finds. Nothing here knows the PDF library, so that everything
// built on it can be tried on pages made by hand.
//
// All lengths are PDF points (1/72 inch). The origin is the top left corner of the page as it is shown (the page's own
// rotation is undone), y grows downwards.
namespace quorra::model {

/// A word as drawn. The text stands in the order in which it is read (right-to-left words already turned).
struct RawWord
{
    QString text;
    Box box;
    double baseline = 0; ///< y of the baseline for upright text, x for text rotated by 90 or 270 degrees
    int rotation = 0;    ///< 0, 90, 180 or 270: clockwise, against the page
    bool spaceAfter = true;
    bool endsLine = true;  ///< the last word of what the PDF library takes for a line: a hint only
    std::size_t index = 0; ///< its place in RawPage::words
    Style style;
    QString link;          ///< an address, or "#page=N" for a place in the same document; empty for none
    int content = -1;      ///< the piece of tagged content it is part of: a place in TagTree::contents; -1 for none
    bool artifact = false; ///< the file says that it is no content of the document: a page number, a running title
};

/// A straight horizontal or vertical line, drawn as a stroke or as a thin filled rectangle.
struct Rule
{
    double x1 = 0;
    double y1 = 0;
    double x2 = 0;
    double y2 = 0;
    double width = 1;
    Colour colour = black;

    bool isHorizontal() const { return y1 == y2; }
    double length() const { return (x2 - x1) + (y2 - y1); }
};

/// A filled rectangle that is too thick to be a rule: the background of a cell or a box.
struct Fill
{
    Box box;
    Colour colour = white;
};

/// A curve, a slanted line, or something filled with a pattern.
struct Ink
{
    Box box;
    bool frame = false; ///< says nothing about what is inside its box: a frame with round corners, a pattern
};

/// Where a raster image stands.
struct RawPicture
{
    Box box; ///< the visible part
};

/// Everything one pass over a page finds.
struct RawPage
{
    int number = 1; ///< counted from 1 in the file
    double width = 612;
    double height = 792;
    std::vector<RawWord> words; ///< in the order of the PDF library's own reading order, a hint only
    std::vector<Rule> rules;
    std::vector<Fill> fills;
    std::vector<RawPicture> pictures; ///< raster images; drawings are found later, from the ink
    std::vector<Ink> ink;
    QString label; ///< as printed on the page ("iv"), where the file says so and it is not the number; may be empty
    std::vector<Comment> comments;
};

} // namespace quorra::model
