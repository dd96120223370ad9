// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/file_facts.h"
#include "document/raw_page.h"

#include <optional>
#include <variant>
#include <vector>

// The document as a reader sees it: pages with sections of columns, and in them paragraphs, tables and figures.
// All writers work from these types. Units and origin are those of raw_page.h.
//
// What every coordinate means, once buildDocument() is done:
// - Boxes (of columns, blocks, cells, lines, words, figures, fills), rules and baselines count on the page as shown,
//   whichever way the text runs. A cell lies inside its table, a paragraph's lines inside the paragraph unless it goes
//   on in another column. transformPage() keeps this.
// - A baseline is the y of a line of rotation 0 or 180, the x of one of rotation 90 or 270.
// - Indents and distances of a paragraph are lengths along and across its own lines, not along the page's sides.
// - The edges of a table and the sides of its cells (left, top, ...) are those of the table read upright: see Table.
namespace quorra::model {

/// Where a small piece of text stands against the letters beside it.
enum class BaselineShift { None, Superscript, Subscript };

/// What stands between a word and the next word of its paragraph.
enum class Separator {
    None,      ///< nothing: the two are parts of one word, or ideographs at a line's end
    Space,     ///< a space, or the end of a line at which the text wraps
    LineBreak, ///< the end of a line that is meant (code, addresses)
    Hyphen     ///< the end of a line inside a word: the hyphen that ends this part is no character of the word
};

struct Word
{
    QString text;
    Box box;
    double baseline = 0; ///< y of the baseline for upright text, x for text rotated by 90 or 270 degrees
    int rotation = 0;    ///< 0, 90, 180 or 270: clockwise, against the page
    StyleRef style;      ///< of the document's table
    BaselineShift shift = BaselineShift::None;
    Separator separator = Separator::Space; ///< what follows; of a paragraph's last word it means nothing
    QString link; ///< an address, or "#page=N" for a place in the same document; empty for none

    bool spaceAfter() const { return separator != Separator::None; }
};

/// One line of text as it stands on the page; the words in the order in which they are read.
struct Line
{
    Box box;
    double baseline = 0;
    int rotation = 0;
    std::vector<Word> words;
};

enum class Role { Body, Heading, ListItem, Caption, Footnote, PageHeader };
enum class Alignment { Left, Centre, Right, Justify };

/// The mark of an entry of a list: the first word of its paragraph, which is no part of its text.
struct ListItem
{
    QString mark;         ///< "•", "3.", "(a)": as it stands on the page
    bool ordered = false; ///< the mark counts
    int level = 0;        ///< 0 for the outermost list
};

/// Names a figure of a document: its place in Document::figures, counted from 0.
enum class FigureId : std::size_t {};

/// A line around a cell or along a paragraph; width 0 means no line.
struct Border
{
    double width = 0;
    Colour colour = black;
};

/// A line drawn above or below a paragraph. Lengths are in points along and across the paragraph's lines of text.
struct ParagraphBorder
{
    Border line;          ///< of width 0 where there is none
    double gap = 0;       ///< between the line and the text
    double start = 0;     ///< where it begins, from the left edge of the paragraph's box
    double length = 0;    ///< from where it begins to where it ends
    bool partial = false; ///< it reaches over a part of the column only
};

struct Paragraph
{
    /// The text, as it stands on the page. Between words stands what their separators say.
    std::vector<Line> lines;
    Role role = Role::Body;
    int headingLevel = 0;      ///< 1 for the highest; 0 for what is no heading
    bool preformatted = false; ///< a listing: line ends are meant, words stand in columns of letters of one width
    Alignment alignment = Alignment::Left;
    double indentLeft = 0;      ///< from the left edge of its column (or cell)
    double indentRight = 0;     ///< from the right edge of its column (or cell)
    double firstLineIndent = 0; ///< against the other lines; negative when it hangs
    double spaceBefore = 0;     ///< blank space above the first line, beyond the normal line distance
    double lineDistance = 0;    ///< baseline to baseline, 0 when there is one line only
    Box box;
    bool rightToLeft = false;
    int rotation = 0;                  ///< as in Word
    std::optional<ListItem> listItem;  ///< set for entries of lists
    std::optional<FigureId> captionOf; ///< set for captions whose figure is known
    ParagraphBorder borderAbove;
    ParagraphBorder borderBelow;
    std::optional<Colour> shading; ///< the colour of the area that it stands on
    /// The text goes on from the last body paragraph before it (a column or page break stands inside a sentence).
    bool continuesPrevious = false;
};

struct Cell
{
    int row = 0;
    int column = 0;
    int rowSpan = 1;
    int columnSpan = 1;
    Box box;     ///< on the page, as all boxes
    Border left; ///< the side towards the column before it, whichever way the table is turned; top and so on likewise
    Border top;
    Border right;
    Border bottom;
    std::optional<Colour> background;
    std::vector<Paragraph> paragraphs; ///< empty in an empty cell
};

struct Table
{
    Box box;
    int rotation = 0; ///< how far the table is turned clockwise against the page: 0, 90, 180 or 270
    /// x of the columns' edges, one more than there are columns, growing. They count on the page turned so that the
    /// table stands upright (turnToPage() leads from there to the page as shown): on the page itself for rotation 0.
    std::vector<double> columnEdges;
    std::vector<double> rowEdges; ///< y of the rows' edges, likewise
    /// Row by row; every place of the grid is covered by exactly one cell, empty cells included.
    std::vector<Cell> cells;
    bool ruled = false; ///< found by its lines rather than by its text
    int headerRows = 0;
    bool continuesPrevious = false; ///< the rest of the table at the end of the page before

    int columns() const { return columnEdges.empty() ? 0 : static_cast<int>(columnEdges.size()) - 1; }
    int rows() const { return rowEdges.empty() ? 0 : static_cast<int>(rowEdges.size()) - 1; }
};

enum class FigureKind {
    Image,   ///< a raster image of the file
    Drawing, ///< a region full of lines, curves and fills that are no rules of a table
    Page     ///< the whole page, for scans
};

/// A picture among the text. Its pixels come from a PictureSource.
struct Figure
{
    Box box; ///< where it stands; what is drawn there is the region that the document has for its id
    FigureKind kind = FigureKind::Image;
    FigureId id = {};
    bool behindText = false;       ///< text stands on it that is no part of it
    std::vector<Paragraph> labels; ///< the text inside a drawing, which its picture shows already
};

/// The part of a page of the file that a figure shows. It stays what it is when pages are moved or scaled.
struct FigureRegion
{
    int page = 1; ///< counted from 1 in the file
    Box box;      ///< on the page as shown
};

struct Block
{
    std::variant<Paragraph, Table, Figure> content;
    int column = 0; ///< in which column of its section it stands

    const Paragraph *paragraph() const { return std::get_if<Paragraph>(&content); }
    const Table *table() const { return std::get_if<Table>(&content); }
    const Figure *figure() const { return std::get_if<Figure>(&content); }
    Paragraph *paragraph() { return std::get_if<Paragraph>(&content); }
    Table *table() { return std::get_if<Table>(&content); }
    Figure *figure() { return std::get_if<Figure>(&content); }
    Box box() const
    {
        return std::visit([](const auto &c) { return c.box; }, content);
    }
};

/// A band of the page with one number of columns.
struct Section
{
    std::vector<Box> columns;  ///< from the first to the last in reading order; at least one
    std::vector<Block> blocks; ///< in reading order
};

struct Page
{
    int number = 1; ///< in the file
    double width = 612;
    double height = 792;
    Box content;                   ///< around everything but header and footer: the page inside its margins
    std::vector<Section> sections; ///< from top to bottom, in reading order
    std::vector<Paragraph> header; ///< with the page number, where it stands there
    std::vector<Paragraph> footer; ///< likewise
    std::vector<Rule> rules;       ///< lines that belong to no table
    std::vector<Fill> fills;       ///< backgrounds that belong to no table
    std::size_t marks = 0;         ///< how many lines and shapes are drawn on it: tells how long drawing it takes
    bool scanned = false;          ///< nothing but a picture of the page (then the only block is that picture)
    QString label;                 ///< as in RawPage
    std::vector<Comment> comments; ///< of readers of the file
};

struct Document
{
    StyleTable styles;
    FileFacts facts;
    std::vector<Page> pages;
    std::vector<FigureRegion> figures; ///< what each figure shows, by its id
};

} // namespace quorra::model
