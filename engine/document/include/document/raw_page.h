// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"
#include "base/geometry.h"
#include "document/file_facts.h"
#include "document/tags.h"
#include "document/text_style.h"

#include <QString>

#include <cstddef>
#include <optional>
#include <vector>

// What one pass over a page of a PDF file finds, as plain data that does not depend on the PDF library: tests can make
// pages by hand.
//
// All lengths are PDF points (1/72 inch). The origin is the top left corner of the page as displayed (its own rotation
// is already applied), and y grows downwards.
namespace quorra::model {

/// A word as drawn. Its text is in reading order, also if it is right-to-left.
struct RawWord
{
    QString text;
    Box box;
    double baseline = 0; ///< y of the baseline for upright text, x for text rotated by 90 or 270 degrees
    int rotation = 0;    ///< 0, 90, 180 or 270 degrees clockwise, relative to the page
    bool spaceAfter = true;
    bool endsLine = true;  ///< it is the last word of a line of the PDF library, which is only a hint
    std::size_t index = 0; ///< in RawPage::words
    Style style;
    bool hidden = false;   ///< it cannot be seen: drawn without paint, or under an image
    QString link;          ///< an address, or "#page=N" for a page of the same document; empty if there is none
    int content = -1;      ///< the piece of tagged content it is part of: a place in TagTree::contents; -1 for none
    bool artifact = false; ///< the file says that it is no content of the document: a page number, a running title
    const TaggedParagraph *tagged = nullptr; ///< set during the analysis where the tags are used
    bool inLabel = false;                    ///< likewise: part of the mark of a list item
    /// How sure character recognition is of the word, from 0 to 1; only of words that the engine itself recognised.
    std::optional<double> confidence = {};
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
    Colour colour = white; ///< as it is seen: mixed with what is below where the fill is transparent
    /// Whether a rectangle of that colour looks the same. Otherwise the corners are round, or the colour stands for a
    /// gradient or a pattern, or changes with what lies below.
    bool exact = true;
};

/// A curve, a slanted line, or something filled with a pattern or a gradient.
struct Ink
{
    Box box;
    bool frame = false; ///< a frame with rounded corners or a pattern, which says nothing about what is inside its box
};

/// A raster image of the file and its place on the page, where its pixels can be shown as they are: opaque, upright
/// or rotated by multiples of 90 degrees, and with nothing painted over it.
struct ImageSource
{
    int object = 0; ///< in the file
    int generation = 0;
    Box whole;             ///< on the displayed page, with the parts that are cut off
    int rotation = 0;      ///< 0, 90, 180 or 270: clockwise
    bool mirrored = false; ///< left and right are exchanged, before the rotation
};

/// The position of a raster image.
struct RawPicture
{
    Box box; ///< the visible part
    std::optional<ImageSource> stream = {};
    bool scan = false;      ///< it shows the recognised text of the page, which replaces it
    bool part = false;      ///< a part of a scan that shows a picture rather than text
    double dotsPerInch = 0; ///< of its pixels on the page, along the finer side; 0 if unknown
};

/// What is read aloud in place of a figure.
struct Alternative
{
    Box box; ///< around what is painted of the figure
    QString text;
};

/// Everything one pass over a page finds.
struct RawPage
{
    int number = 1; ///< counted from 1 in the file
    double width = 612;
    double height = 792;
    std::vector<RawWord> words; ///< in the reading order of the PDF library, which is only a hint
    std::vector<Rule> rules;
    std::vector<Fill> fills;
    std::vector<RawPicture> pictures; ///< drawings are found later, from the ink
    std::vector<Ink> ink;
    bool recognised = false; ///< some of the words were recognised in a scan, which shows them (see resolveHiddenWords)
    bool watermark = false;  ///< large slanted text lies on it, which is none of its words
    QString label; ///< as printed on the page ("iv"), where the file says so and it is not the number; may be empty
    std::vector<Comment> comments;
    std::vector<Alternative> alternatives;
};

} // namespace quorra::model
