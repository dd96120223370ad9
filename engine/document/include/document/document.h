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
// The meaning of coordinates after buildDocument():
// - Boxes (of columns, blocks, cells, lines, words, figures, fills), rules and baselines are coordinates on the
//   displayed page, whatever the direction of the text. A cell lies inside its table, and the lines of a paragraph lie
//   inside the paragraph, unless it continues in another column. transformPage() preserves this.
// - A baseline is a y coordinate for text with rotation 0 or 180, and an x coordinate for rotation 90 or 270.
// - Indents and spacing of a paragraph are measured along and across its own lines.
// - The edges of a table and the sides of its cells (left, top, ...) refer to the table rotated upright: see Table.
namespace quorra::model {

/// The position of text relative to the baseline of its line.
enum class BaselineShift { None, Superscript, Subscript };

/// What follows a word in its paragraph.
enum class Separator {
    None,      ///< nothing: the next word is a part of the same word, or both are ideographs
    Space,     ///< a space, or the end of a line at which the text wraps
    LineBreak, ///< a line end that has a meaning (code, addresses)
    Tab,       ///< a gap wider than a space; the tab stops of the paragraph define where it ends
    Hyphen     ///< a line end inside a word: the hyphen at the end of this part is not part of the word
};

/// What a word of a page header or footer stands for: the number of its page, or how many pages there are.
enum class PageField { None, Number, Count };

/// Identifies a note of a document: counted from 0.
enum class NoteId : std::size_t {};

struct Word
{
    QString text;
    Box box;
    double baseline = 0; ///< y of the baseline for upright text, x for text rotated by 90 or 270 degrees
    int rotation = 0;    ///< 0, 90, 180 or 270 degrees clockwise, relative to the page
    StyleRef style;      ///< in the document's table
    BaselineShift shift = BaselineShift::None;
    Separator separator = Separator::Space; ///< what follows; has no meaning after the last word of a paragraph
    QString link; ///< an address, or "#page=N" for a page of the same document; empty if there is none

    std::optional<NoteId> note;        ///< set for the mark in the text that refers to this note
    PageField field = PageField::None; ///< of a word in a page header or footer
    bool leader = false;               ///< dots that fill the gap of a tab: seen on the page, but no text
    std::optional<double> confidence;  ///< as in RawWord

    bool spaceAfter() const { return separator != Separator::None; }
};

/// One line of text on the page, with its words in reading order.
struct Line
{
    Box box;
    double baseline = 0;
    int rotation = 0;
    std::vector<Word> words;
};

enum class Role { Body, Heading, ListItem, Caption, Footnote, PageHeader };
enum class Alignment { Left, Centre, Right, Justify };

/// The mark of a list item: the first word of its paragraph, which is not part of its text.
struct ListItem
{
    QString mark;          ///< "•", "3.", "(a)": as on the page
    bool ordered = false;  ///< the mark is a number or a letter
    int level = 0;         ///< 0 for the outermost list
    bool fromTags = false; ///< the item and its level come from the file's tags
};

/// A paragraph that is an entry of a table of contents: a text, and the page on which it stands.
struct ContentsEntry
{
    int level = 0; ///< 0 for the outermost entries
    QString page;  ///< as printed at its end, which is part of its text
    QString link;  ///< where it leads, as Word::link; empty if the file does not say
};

/// Identifies a figure of a document: its index in Document::figures.
enum class FigureId : std::size_t {};

/// A line at an edge of a cell or paragraph; width 0 means no line.
struct Border
{
    double width = 0;
    Colour colour = black;
};

/// Where the text after a tab begins (Left), ends (Right) or has its middle (Centre).
struct TabStop
{
    double position = 0; ///< from the left edge of the paragraph's column (or cell)
    Alignment alignment = Alignment::Left;
    bool leader = false; ///< dots fill the gap
};

/// A line drawn above or below a paragraph. Lengths are in points along and across the paragraph's lines of text.
struct ParagraphBorder
{
    Border line;          ///< of width 0 if there is none
    double gap = 0;       ///< between the line and the text
    double start = 0;     ///< its start, measured from the left edge of the paragraph's box
    double length = 0;    ///< of the line
    bool partial = false; ///< it is shorter than the column is wide
};

struct Paragraph
{
    /// The text, line by line as on the page. Separators of words describe what is between them.
    std::vector<Line> lines;
    Role role = Role::Body;
    int headingLevel = 0;      ///< 1 for the highest; 0 if it is not a heading
    bool preformatted = false; ///< line ends have a meaning, and so do columns of characters (source code)
    Alignment alignment = Alignment::Left;
    double indentLeft = 0;      ///< from the left edge of its column (or cell)
    double indentRight = 0;     ///< from the right edge of its column (or cell)
    double firstLineIndent = 0; ///< relative to the other lines; negative for a hanging indent
    double spaceBefore = 0;     ///< space above the first line, in addition to the normal line distance
    double lineDistance = 0;    ///< baseline to baseline; 0 if there is only one line
    Box box;
    bool rightToLeft = false;
    int rotation = 0;                 ///< as in Word
    std::vector<TabStop> tabStops;    ///< one for each of its tabs, in order
    int dropCapLines = 0;             ///< height in lines of the drop cap that its first word is; 0 for none
    std::optional<ListItem> listItem; ///< set for list items
    std::optional<NoteId> note;       ///< set for a note that a mark in the text refers to; begins with its mark
    /// Which paragraph of the file's tags it is, or a part of; set where the tags say what it is.
    std::optional<std::size_t> tag;
    bool headingFromTags = false;               ///< whether it is a heading comes from the file's tags
    bool title = false;                         ///< the title of the whole document, a heading of level 1
    std::optional<ContentsEntry> contentsEntry; ///< set for entries of a table of contents
    QString language; ///< a language tag, where it is not that of the document (languageOf()) and known
    std::optional<FigureId> captionOf; ///< set for captions whose figure is known
    ParagraphBorder borderAbove;
    ParagraphBorder borderBelow;
    std::optional<Colour> shading; ///< the colour behind it
    /// It continues the last body paragraph before it, across a column or page break inside a sentence.
    bool continuesPrevious = false;
};

struct Cell
{
    int row = 0;
    int column = 0;
    int rowSpan = 1;
    int columnSpan = 1;
    Box box;     ///< on the displayed page, as all boxes
    Border left; ///< at the side of the previous column, whatever the rotation of the table; top and so on likewise
    Border top;
    Border right;
    Border bottom;
    std::optional<Colour> background;
    std::vector<Paragraph> paragraphs; ///< empty in an empty cell
};

struct Table
{
    Box box;
    int rotation = 0; ///< 0, 90, 180 or 270 degrees clockwise, relative to the page
    /// The x coordinates of the edges of columns, one more than there are columns, in ascending order. They are
    /// coordinates on the page rotated so that the table is upright; rotationToPage() converts to the displayed page.
    std::vector<double> columnEdges;
    std::vector<double> rowEdges; ///< the y coordinates of the edges of rows, likewise
    /// Row by row. Exactly one cell covers each position in the grid; cells may be empty.
    std::vector<Cell> cells;
    bool ruled = false; ///< found by its rules rather than by its text
    int headerRows = 0;
    bool continuesPrevious = false; ///< it continues the table at the end of the previous page
    bool continuesRow = false;      ///< the row after its head rows is the rest of the last row of the previous page

    int columns() const { return columnEdges.empty() ? 0 : static_cast<int>(columnEdges.size()) - 1; }
    int rows() const { return rowEdges.empty() ? 0 : static_cast<int>(rowEdges.size()) - 1; }
};

enum class FigureKind {
    Image,   ///< a raster image of the file
    Drawing, ///< a region with lines, curves and fills that do not belong to a table
    Page     ///< the whole page, for scans
};

/// A picture among the text. Its pixels come from a PictureSource.
struct Figure
{
    Box box; ///< its position; its picture is the region in Document::figures
    FigureKind kind = FigureKind::Image;
    FigureId id = {};
    QString alternative;                    ///< what is read aloud in its place, where the file says so
    std::optional<ImageSource> stream = {}; ///< as in RawPicture
    bool behindText = false;                ///< there is text on it that does not belong to it
    std::vector<Paragraph> labels;          ///< the text inside a drawing, which is also visible in its picture
};

/// The region of a page in the file that a figure shows. It does not change when pages are moved or scaled.
struct FigureRegion
{
    int page = 1; ///< counted from 1 in the file
    Box box;      ///< on the displayed page
    /// Places of words on it that are text of the page rather than labels of the figure: its picture omits them.
    std::vector<Box> text = {};
    std::optional<ImageSource> stream = {}; ///< of an image whose pixels can be shown as they are in the file
};

struct Block
{
    std::variant<Paragraph, Table, Figure> content;
    int column = 0; ///< index of its column in the section

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

/// A horizontal band of the page with a fixed number of columns.
struct Section
{
    std::vector<Box> columns;  ///< in reading order; at least one
    std::vector<Block> blocks; ///< in reading order
};

struct Page
{
    int number = 1; ///< in the file
    double width = 612;
    double height = 792;
    Box content;                   ///< around everything except header and footer: the page without its margins
    std::vector<Section> sections; ///< from top to bottom, in reading order
    std::vector<Paragraph> header; ///< including the page number if it is there
    std::vector<Paragraph> footer; ///< likewise
    std::vector<Rule> rules;       ///< rules that do not belong to a table or figure
    std::vector<Fill> fills;       ///< fills that do not belong to a table or figure
    std::size_t marks = 0;         ///< the number of lines and shapes, for estimates of the time that rendering takes
    /// Where the picture of all but its text (PictureSource::background()) belongs, if something is painted on it that
    /// no rule, fill or figure of it shows: round frames, gradients, curves behind text. The whole page, unless moved.
    std::optional<Box> background;
    bool recognised = false; ///< some of its text was recognised in a scan; a copy of the page puts that over the text
    bool scanned = false;    ///< the page is one picture, which is its only block
    QString label;           ///< as in RawPage
    std::vector<Comment> comments; ///< of readers of the file
};

struct Document
{
    StyleTable styles;
    FileFacts facts;
    std::vector<Page> pages;
    std::vector<FigureRegion> figures; ///< what each figure shows; the index is its id
};

} // namespace quorra::model
