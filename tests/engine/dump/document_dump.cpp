// SPDX-License-Identifier: GPL-3.0-or-later
#include "document_dump.h"

#include "document/page_walk.h"
#include "document/text.h"
#include "dump_text.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <ostream>

namespace quorra::test {

namespace {

using namespace model;

/// Figures count from 1 over the document.
std::string number(FigureId figure)
{
    return std::to_string(static_cast<std::size_t>(figure) + 1);
}

std::string name(const Paragraph &paragraph)
{
    switch (paragraph.role) {
    case Role::Heading:
        return std::string(paragraph.title ? "title, heading " : "heading ") + std::to_string(paragraph.headingLevel);
    case Role::ListItem: {
        const ListItem item = paragraph.listItem.value_or(ListItem{});
        return std::string(item.ordered ? "numbered item " : "bullet item ") + visible(item.mark) + " level " +
               std::to_string(item.level + 1);
    }
    case Role::Caption:
        return paragraph.captionOf ? "caption of figure " + number(*paragraph.captionOf) : "caption";
    case Role::Footnote:
        return paragraph.note ? "footnote " + std::to_string(static_cast<std::size_t>(*paragraph.note) + 1)
                              : "footnote";
    case Role::PageHeader:
    case Role::Body:
        break;
    }
    return "paragraph";
}

std::string name(Alignment alignment)
{
    switch (alignment) {
    case Alignment::Centre:
        return "centred";
    case Alignment::Right:
        return "right";
    case Alignment::Justify:
        return "justified";
    case Alignment::Left:
        break;
    }
    return {};
}

std::string name(FigureKind kind)
{
    switch (kind) {
    case FigureKind::Drawing:
        return "drawing";
    case FigureKind::Page:
        return "picture of the page";
    case FigureKind::Image:
        break;
    }
    return "picture";
}

std::string name(BaselineShift shift)
{
    switch (shift) {
    case BaselineShift::Superscript:
        return "superscript";
    case BaselineShift::Subscript:
        return "subscript";
    case BaselineShift::None:
        break;
    }
    return "level";
}

std::string name(PageField field)
{
    switch (field) {
    case PageField::Number:
        return "page number";
    case PageField::Count:
        return "page count";
    case PageField::None:
        break;
    }
    return "no page field";
}

/// A length with its name; nothing if it is rounded to 0.
std::string length(const std::string &what, double value)
{
    return std::lround(value) == 0 ? std::string() : what + " " + whole(value);
}

/// The differences in style between two runs.
std::string change(const Run &from, const Run &to)
{
    const Style &was = from.style;
    const Style &is = to.style;
    return joined(
        {was.family == is.family ? "" : visible(is.family), tenths(was.size) == tenths(is.size) ? "" : tenths(is.size),
         was.bold == is.bold ? ""
         : is.bold           ? "bold"
                             : "not bold",
         was.italic == is.italic ? ""
         : is.italic             ? "italic"
                                 : "not italic",
         was.underlined == is.underlined ? ""
         : is.underlined                 ? "underlined"
                                         : "not underlined",
         was.struckThrough == is.struckThrough ? ""
         : is.struckThrough                    ? "struck"
                                               : "not struck",
         was.colour == is.colour ? ""
         : is.colour == black    ? "black"
                                 : colour(is.colour),
         from.link == to.link ? ""
         : to.link.isEmpty()  ? "no link"
                              : "link " + visible(to.link),
         from.shift == to.shift ? "" : name(to.shift), from.field == to.field ? "" : name(to.field),
         to.note ? "of footnote " + std::to_string(static_cast<std::size_t>(*to.note) + 1) : ""},
        " ");
}

/// The text with changes of style in braces.
std::string textOf(const Paragraph &paragraph)
{
    std::string text;
    const Run *previous = nullptr;
    const std::vector<Run> runs = runsOf(paragraph);
    for (const Run &run : runs) {
        const std::string changes = previous ? change(*previous, run) : std::string();
        if (!changes.empty()) {
            text += "{" + changes + "}";
        }
        text += visible(run.text);
        previous = &run;
    }
    return text;
}

std::string styleOf(const Paragraph &paragraph)
{
    const std::vector<Run> runs = runsOf(paragraph);
    if (runs.empty()) {
        return {};
    }
    const Run &first = runs.front();
    return joined(
        {styleText(first.style, first.link), first.shift == BaselineShift::None ? "" : name(first.shift),
         first.field == PageField::None ? "" : name(first.field)},
        " ");
}

std::string tabsOf(const Paragraph &paragraph)
{
    std::string text;
    for (const TabStop &stop : paragraph.tabStops) {
        text += joined(
            {text.empty() ? "tabs" : ",", whole(stop.position), name(stop.alignment), stop.leader ? "dots" : ""}, " ");
    }
    return text;
}

std::string spacingOf(const Paragraph &paragraph)
{
    const std::string lines =
        paragraph.lines.size() > 1 ? std::to_string(paragraph.lines.size()) + " lines" : std::string();
    const std::string distance =
        lines.empty() || paragraph.lineDistance <= 0 ? std::string() : "every " + tenths(paragraph.lineDistance);
    return joined(
        {length("space before", paragraph.spaceBefore), joined({lines, distance}, " "),
         length("indent", paragraph.indentLeft), length("right indent", paragraph.indentRight),
         length("first line", paragraph.firstLineIndent), tabsOf(paragraph),
         paragraph.dropCapLines == 0 ? "" : "drop cap of " + std::to_string(paragraph.dropCapLines) + " lines"},
        "; ");
}

std::string contentsOf(const Paragraph &paragraph)
{
    if (!paragraph.contentsEntry) {
        return {};
    }
    const ContentsEntry &entry = *paragraph.contentsEntry;
    return joined(
        {"contents entry of level " + std::to_string(entry.level + 1),
         entry.page.isEmpty() ? "" : "for page " + visible(entry.page), visible(entry.link)},
        " ");
}

/// Properties of all paragraphs, including those in cells.
std::string traitsOf(const Paragraph &paragraph)
{
    return joined(
        {styleOf(paragraph), name(paragraph.alignment), paragraph.rightToLeft ? "right-to-left" : "",
         paragraph.rotation == 0 ? "" : "rotated " + std::to_string(paragraph.rotation),
         paragraph.language.isEmpty() ? "" : "language " + visible(paragraph.language), contentsOf(paragraph)},
        "; ");
}

bool endsInsideWord(const Paragraph &paragraph)
{
    return !paragraph.lines.empty() && !paragraph.lines.back().words.empty() &&
           paragraph.lines.back().words.back().separator == Separator::Hyphen;
}

/// Finds where paragraphs that continue an earlier one break.
class Continuations
{
public:
    /// To be asked for every paragraph outside of tables, headers and footers, in reading order.
    std::string operator()(const Paragraph &paragraph)
    {
        if (paragraph.role != Role::Body && paragraph.role != Role::ListItem) {
            return {};
        }
        bool &insideWord = m_insideWord[std::lround(meanFontSize(paragraph))]; // text goes on in text of its size
        std::string text = !paragraph.continuesPrevious ? ""
                           : insideWord                 ? "goes on inside a word"
                                                        : "goes on inside a sentence";
        insideWord = endsInsideWord(paragraph);
        return text;
    }

private:
    std::map<long, bool> m_insideWord; ///< whether the last text of a size ends inside a word
};

std::string borderOf(const std::string &side, const ParagraphBorder &border)
{
    if (border.line.width <= 0) {
        return {};
    }
    return joined(
        {"line " + side + " " + tenths(border.line.width), colour(border.line.colour), "gap " + whole(border.gap),
         "from " + whole(border.start), "length " + whole(border.length), border.partial ? "partial" : ""},
        " ");
}

/// What is drawn around the paragraph and behind it.
std::string decorationOf(const Paragraph &paragraph)
{
    return joined(
        {borderOf("above", paragraph.borderAbove), borderOf("below", paragraph.borderBelow),
         paragraph.shading ? "shading " + colour(*paragraph.shading) : ""},
        "; ");
}

void dumpParagraph(const Paragraph &paragraph, const std::string &what, const std::string &joins, std::ostream &out)
{
    out << what << " ["
        << joined({traitsOf(paragraph), box(paragraph.box), spacingOf(paragraph), decorationOf(paragraph), joins}, "; ")
        << "] " << textOf(paragraph) << '\n';
}

std::string edge(char side, const Border &border)
{
    if (border.width <= 0) {
        return {};
    }
    return side + tenths(border.width) + (border.colour == black ? "" : colour(border.colour));
}

std::string edgesOf(const Cell &cell)
{
    const auto same = [&cell](const Border &other) {
        return tenths(other.width) == tenths(cell.left.width) && other.colour == cell.left.colour;
    };
    if (cell.left.width > 0 && same(cell.top) && same(cell.right) && same(cell.bottom)) {
        return "all edges " + tenths(cell.left.width) + (cell.left.colour == black ? "" : colour(cell.left.colour));
    }
    return joined({edge('L', cell.left), edge('T', cell.top), edge('R', cell.right), edge('B', cell.bottom)}, " ");
}

std::string span(int count, const std::string &what)
{
    return count == 1 ? std::string() : std::to_string(count) + " " + what;
}

/// A cell with one plain paragraph takes one line, others a line for each paragraph besides.
void dumpCell(const Cell &cell, const std::string &margin, std::ostream &out)
{
    const bool plain = cell.paragraphs.size() == 1 && cell.paragraphs.front().role == Role::Body;
    const std::string traits = joined(
        {span(cell.rowSpan, "rows"), span(cell.columnSpan, "columns"), edgesOf(cell),
         cell.background ? "fill " + colour(*cell.background) : "", plain ? traitsOf(cell.paragraphs.front()) : ""},
        "; ");
    out << margin << "cell " << cell.row + 1 << "," << cell.column + 1;
    if (!traits.empty()) {
        out << " [" << traits << "]";
    }
    if (plain) {
        out << " " << textOf(cell.paragraphs.front()) << '\n';
        return;
    }
    out << '\n';
    for (const Paragraph &paragraph : cell.paragraphs) {
        out << margin << "  " << name(paragraph) << " [" << traitsOf(paragraph) << "] " << textOf(paragraph) << '\n';
    }
}

std::string positions(const std::vector<double> &edges)
{
    std::string text;
    for (const double each : edges) {
        text += ' ';
        text += whole(each);
    }
    return text;
}

void dumpTable(const Table &table, const std::string &margin, std::ostream &out)
{
    out << margin << "table of " << table.rows() << " rows, " << table.columns() << " columns ["
        << joined(
               {box(table.box), table.ruled ? "ruled" : "unruled",
                table.headerRows == 0 ? "" : "header rows " + std::to_string(table.headerRows),
                table.continuesPrevious ? "goes on from the page before" : "",
                table.continuesRow ? "begins inside a row" : ""},
               "; ")
        << "]\n";
    out << margin << "  column edges" << positions(table.columnEdges) << '\n';
    out << margin << "  row edges" << positions(table.rowEdges) << '\n';
    for (const Cell &cell : table.cells) {
        dumpCell(cell, margin + "  ", out);
    }
}

/// How the pixels of the file are shown, nothing for a figure that is drawn.
std::string pixelsOf(const Figure &figure)
{
    if (!figure.stream) {
        return {};
    }
    const Box &whole = figure.stream->whole;
    return joined(
        {"own pixels", figure.stream->rotation == 0 ? "" : "rotated " + std::to_string(figure.stream->rotation),
         figure.stream->mirrored ? "mirrored" : "", box(whole) == box(figure.box) ? "" : "of " + box(whole)},
        " ");
}

void dumpBlock(const Block &block, Continuations &continuations, const std::string &margin, std::ostream &out)
{
    if (const Paragraph *paragraph = block.paragraph()) {
        out << margin;
        dumpParagraph(*paragraph, name(*paragraph), continuations(*paragraph), out);
    } else if (const Table *table = block.table()) {
        dumpTable(*table, margin, out);
    } else if (const Figure *figure = block.figure()) {
        out << margin << name(figure->kind) << " " << number(figure->id) << " ["
            << joined(
                   {box(figure->box), figure->behindText ? "behind text" : "", pixelsOf(*figure),
                    figure->alternative.isEmpty() ? "" : "alternative " + visible(figure->alternative)},
                   "; ")
            << "]\n";
        for (const Paragraph &label : figure->labels) {
            out << margin << "  ";
            dumpParagraph(label, "labels", {}, out);
        }
    }
}

void dumpSection(const Section &section, Continuations &continuations, std::ostream &out)
{
    const bool several = section.columns.size() > 1;
    out << "  section of " << section.columns.size() << (several ? " columns" : " column");
    for (const Box &column : section.columns) {
        out << " " << whole(column.left) << "-" << whole(column.right);
    }
    out << '\n';
    int column = -1;
    for (const Block &block : section.blocks) {
        if (several && block.column != column) {
            out << "    column " << block.column + 1 << '\n';
        }
        column = block.column;
        dumpBlock(block, continuations, several ? "      " : "    ", out);
    }
}

void dumpAll(const std::vector<Paragraph> &paragraphs, const std::string &what, std::ostream &out)
{
    for (const Paragraph &paragraph : paragraphs) {
        out << "  ";
        dumpParagraph(paragraph, what, {}, out);
    }
}

bool isTagged(const Page &page)
{
    bool tagged = false;
    forEachParagraph(page, [&tagged](const Paragraph &paragraph) { tagged = tagged || paragraph.tag; });
    return tagged;
}

void dumpPage(const Page &page, Continuations &continuations, std::ostream &out)
{
    out << "page " << page.number << " ["
        << joined(
               {whole(page.width) + " x " + whole(page.height), page.scanned ? "scanned" : "",
                page.recognised ? "recognised" : "", page.label.isEmpty() ? "" : "label " + visible(page.label),
                isTagged(page) ? "tags used" : "", page.content.isEmpty() ? "empty" : "content " + box(page.content),
                page.background ? "needs its background as a picture" : ""},
               "; ")
        << "]\n";
    dumpAll(page.header, "header", out);
    for (const Section &section : page.sections) {
        dumpSection(section, continuations, out);
    }
    dumpAll(page.footer, "footer", out);
    for (const Fill &fill : page.fills) {
        out << "  fill [" << box(fill.box) << "; " << colour(fill.colour) << (fill.exact ? "" : "; about") << "]\n";
    }
    for (const Rule &rule : page.rules) {
        out << "  line [" << box({rule.x1, rule.y1, rule.x2, rule.y2}) << "; " << tenths(rule.width) << " "
            << colour(rule.colour) << "]\n";
    }
    for (const Comment &comment : page.comments) {
        out << "  comment [" << joined({box(comment.box), visible(comment.author)}, "; ") << "] "
            << visible(comment.text) << '\n';
    }
}

/// Without the title: that of drawn documents is their name.
void dumpFacts(const FileFacts &facts, std::ostream &out)
{
    const auto line = [&out](const char *name, const QString &value) {
        if (!value.isEmpty()) {
            out << name << ": " << visible(value) << '\n';
        }
    };
    line("author", facts.author);
    line("subject", facts.subject);
    line("keywords", facts.keywords);
    line("language", facts.language);
    for (const OutlineEntry &entry : facts.outline) {
        constexpr double percent = 100;
        const std::string place =
            entry.page == 0 ? "nowhere"
            : entry.top > 0 ? "page " + std::to_string(entry.page) + " at " + whole(percent * entry.top) + " %"
                            : "page " + std::to_string(entry.page);
        out << "outline " << entry.level + 1 << " [" << place << "] " << visible(entry.title) << '\n';
    }
}

} // namespace

void dump(const Document &document, std::ostream &out)
{
    dumpFacts(document.facts, out);
    Continuations continuations;
    for (const Page &page : document.pages) {
        dumpPage(page, continuations, out);
    }
}

} // namespace quorra::test
