// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/office/odf_sheets.h"

#include "engine/office/number_format.h"
#include "engine/office/odf_frames.h"
#include "engine/office/odf_tables.h"
#include "engine/office/page_walk.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

constexpr double NarrowestColumn = 20;
constexpr double WidestColumn = 400;
constexpr double LineWidth = 480; // of the column for a document's lines of text

QString cellText(const model::Cell &cell)
{
    QStringList lines;
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        QString text = paragraph.listMark.isEmpty() ? QString() : paragraph.listMark + u' ';
        for (const model::Run &run : paragraph.runs) {
            text += run.text;
        }
        lines.push_back(text);
    }
    return lines.join(u'\n');
}

// The sheets of one document.
class SheetWriter
{
public:
    SheetWriter(OdfFile &file, model::PictureSource &pictures, NumberStyle numberStyle)
        : m_sink{file.body(), file.styles()}
        , m_pictures(pictures)
        , m_numberStyle(numberStyle)
    {}

    void writeTables(const model::Page &page, const std::vector<const model::Table *> &tables);
    void writeScan(const model::Page &page);
    void writeLines(const model::Document &document);

private:
    void beginSheet(const QString &name);
    void writeColumn(double width);
    void beginRow(double height);
    void writeCell(const model::Cell &cell);
    void writeValue(const Number &number);
    QString cellStyle(const model::Cell &cell, const std::optional<Number> &number);

    Sink m_sink;
    model::PictureSource &m_pictures;
    NumberStyle m_numberStyle;
};

void SheetWriter::beginSheet(const QString &name)
{
    m_sink.xml.writeStartElement("table:table"_L1);
    m_sink.xml.writeAttribute("table:name"_L1, name);
}

void SheetWriter::writeColumn(double width)
{
    m_sink.xml.writeEmptyElement("table:table-column"_L1);
    m_sink.xml.writeAttribute(
        "table:style-name"_L1,
        m_sink.styles.name(
            {"style:style"_L1,
             {{"style:family"_L1, u"table-column"_s}},
             {{"style:table-column-properties"_L1,
               {{"style:column-width"_L1, pt(std::clamp(width, NarrowestColumn, WidestColumn))}}}}}));
}

void SheetWriter::beginRow(double height)
{
    m_sink.xml.writeStartElement("table:table-row"_L1);
    if (height > 0) {
        m_sink.xml.writeAttribute(
            "table:style-name"_L1,
            m_sink.styles.name(
                {"style:style"_L1,
                 {{"style:family"_L1, u"table-row"_s}},
                 {{"style:table-row-properties"_L1,
                   {{"style:row-height"_L1, pt(height)}, {"style:use-optimal-row-height"_L1, u"true"_s}}}}}));
    }
}

QString SheetWriter::cellStyle(const model::Cell &cell, const std::optional<Number> &number)
{
    Attributes look = {
        {"fo:border-left"_L1, borderText(cell.left)},
        {"fo:border-right"_L1, borderText(cell.right)},
        {"fo:border-top"_L1, borderText(cell.top)},
        {"fo:border-bottom"_L1, borderText(cell.bottom)},
        {"style:vertical-align"_L1, u"bottom"_s}};
    if (cell.background) {
        look.emplace_back("fo:background-color"_L1, colourName(*cell.background));
    }
    Element style{
        "style:style"_L1, {{"style:family"_L1, u"table-cell"_s}, {"style:parent-style-name"_L1, u"Default"_s}}};
    std::vector<model::Run> runs;
    std::size_t lines = 0;
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        runs.insert(runs.end(), paragraph.runs.begin(), paragraph.runs.end());
        lines += std::max<std::size_t>(1, paragraph.lines.size());
    }
    if (lines > 1) {
        look.emplace_back("fo:wrap-option"_L1, u"wrap"_s);
    }
    Attributes align;
    if (!number && !cell.paragraphs.empty()) {
        const model::Alignment alignment = cell.paragraphs.front().alignment;
        align.emplace_back(
            "fo:text-align"_L1, alignment == model::Alignment::Centre  ? u"center"_s
                                : alignment == model::Alignment::Right ? u"end"_s
                                                                       : u"start"_s);
        look.emplace_back("style:text-align-source"_L1, u"fix"_s);
    }
    if (number) {
        style.attributes.emplace_back("style:data-style-name"_L1, numberFormat(m_sink.styles, *number));
    }
    const model::Style main = mainStyle(runs);
    m_sink.styles.noteFont(main);
    style.children = {
        {"style:table-cell-properties"_L1, look},
        {"style:paragraph-properties"_L1, align},
        {"style:text-properties"_L1, textAttributes(main)}};
    return m_sink.styles.name(style);
}

void SheetWriter::writeValue(const Number &number)
{
    m_sink.xml.writeAttribute("office:value-type"_L1, number.percent ? "percentage"_L1 : "float"_L1);
    m_sink.xml.writeAttribute("office:value"_L1, QString::number(number.value, 'g', 15));
}

void SheetWriter::writeCell(const model::Cell &cell)
{
    QXmlStreamWriter &xml = m_sink.xml;
    const QString text = cellText(cell);
    const std::optional<Number> number = readNumber(text, m_numberStyle);
    xml.writeStartElement("table:table-cell"_L1);
    xml.writeAttribute("table:style-name"_L1, cellStyle(cell, number));
    if (cell.columnSpan > 1 || cell.rowSpan > 1) {
        xml.writeAttribute("table:number-columns-spanned"_L1, QString::number(cell.columnSpan));
        xml.writeAttribute("table:number-rows-spanned"_L1, QString::number(cell.rowSpan));
    }
    if (number) {
        writeValue(*number);
        xml.writeTextElement("text:p"_L1, xmlText(text));
    } else if (!text.isEmpty()) {
        xml.writeAttribute("office:value-type"_L1, "string"_L1);
        for (const model::Paragraph &paragraph : cell.paragraphs) {
            xml.writeStartElement("text:p"_L1);
            if (!paragraph.listMark.isEmpty()) {
                xml.writeCharacters(xmlText(paragraph.listMark) + u' ');
            }
            writeRuns(m_sink, paragraph.runs, mainStyle(paragraph.runs));
            xml.writeEndElement();
        }
    }
    xml.writeEndElement();
}

void SheetWriter::writeTables(const model::Page &page, const std::vector<const model::Table *> &tables)
{
    beginSheet(u"Page %1"_s.arg(page.number));
    std::vector<double> widths;
    for (const model::Table *table : tables) {
        for (int i = 0; i < table->columns(); ++i) {
            const auto column = static_cast<std::size_t>(i);
            widths.resize(std::max(widths.size(), column + 1));
            widths[column] = std::max(widths[column], table->columnEdges[column + 1] - table->columnEdges[column]);
        }
    }
    std::for_each(widths.begin(), widths.end(), [this](double width) { writeColumn(width); });
    for (const model::Table *table : tables) {
        if (table != tables.front()) {
            beginRow(0);
            m_sink.xml.writeEmptyElement("table:table-cell"_L1);
            m_sink.xml.writeEndElement();
        }
        const std::vector<const model::Cell *> grid = cellGrid(*table);
        for (int row = 0; row < table->rows(); ++row) {
            const auto at = table->rowEdges.begin() + row;
            beginRow(at[1] - at[0]);
            for (int column = 0; column < table->columns(); ++column) {
                if (const model::Cell *cell = *(grid.begin() + row * table->columns() + column)) {
                    writeCell(*cell);
                } else {
                    m_sink.xml.writeEmptyElement("table:covered-table-cell"_L1);
                }
            }
            m_sink.xml.writeEndElement();
        }
    }
    m_sink.xml.writeEndElement();
}

void SheetWriter::writeScan(const model::Page &page)
{
    beginSheet(u"Page %1"_s.arg(page.number));
    m_sink.xml.writeStartElement("table:shapes"_L1);
    writePictures(m_sink, page, m_pictures, FrameAnchor::Sheet);
    m_sink.xml.writeEndElement();
    writeColumn(page.width / 8);
    beginRow(0);
    m_sink.xml.writeEmptyElement("table:table-cell"_L1);
    m_sink.xml.writeEndElement();
    m_sink.xml.writeEndElement();
}

model::Cell cellOf(const model::Line &line)
{
    model::Paragraph paragraph;
    for (const model::Word &word : line.words) {
        paragraph.runs.push_back({word.text, word.style});
        if (word.spaceAfter && &word != &line.words.back()) {
            paragraph.runs.back().text += u' ';
        }
    }
    model::Cell cell;
    cell.paragraphs.push_back(std::move(paragraph));
    return cell;
}

void SheetWriter::writeLines(const model::Document &document)
{
    beginSheet(u"Text"_s);
    writeColumn(LineWidth);
    for (const model::Page &page : document.pages) {
        forEachParagraph(page, [this](const model::Paragraph &paragraph) {
            for (const model::Line &line : paragraph.lines) {
                beginRow(0);
                writeCell(cellOf(line));
                m_sink.xml.writeEndElement();
            }
        });
    }
    m_sink.xml.writeEndElement();
}

std::vector<const model::Table *> tablesOf(const model::Page &page)
{
    std::vector<const model::Table *> tables;
    forEachBlock(page, [&](const model::Block &block) {
        if (block.table() && block.table()->rows() > 0) {
            tables.push_back(block.table());
        }
    });
    return tables;
}

} // namespace

void writeSheets(OdfFile &file, const model::Document &document, model::PictureSource &pictures)
{
    QStringList texts;
    for (const model::Page &page : document.pages) {
        for (const model::Table *table : tablesOf(page)) {
            for (const model::Cell &cell : table->cells) {
                texts.push_back(cellText(cell));
            }
        }
    }
    SheetWriter writer(file, pictures, numberStyleOf(texts));
    bool wrote = false;
    for (const model::Page &page : document.pages) {
        const std::vector<const model::Table *> tables = tablesOf(page);
        if (page.scanned) {
            writer.writeScan(page);
        } else if (!tables.empty()) {
            writer.writeTables(page, tables);
        }
        wrote = wrote || page.scanned || !tables.empty();
    }
    if (!wrote) {
        writer.writeLines(document);
    }
}

} // namespace quorra::office
