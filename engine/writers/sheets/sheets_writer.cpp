// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheets/sheets_writer.h"

#include "base/xml_text.h"
#include "cell_value.h"
#include "document/page_walk.h"
#include "document/rotation.h"
#include "number_format.h"
#include "odf/odf_frames.h"
#include "odf/odf_tables.h"
#include "sheet_date.h"
#include "sheet_layout.h"
#include "sheet_printing.h"

#include <algorithm>
#include <deque>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

constexpr double lineColumnWidth = 480; // points; of the column for the lines of a document without tables

QString alignmentName(const model::Paragraph &paragraph)
{
    switch (paragraph.alignment) {
    case model::Alignment::Centre:
        return u"center"_s;
    case model::Alignment::Right:
        return u"end"_s;
    default:
        return paragraph.rightToLeft ? u"end"_s : u"start"_s;
    }
}

/// Writes the sheets of a document.
class SheetWriter
{
public:
    SheetWriter(OdfFile &file, model::PictureSource &pictures, const QStringList &texts)
        : m_sink{file.body(), file.styles()}
        , m_printing(file.masters())
        , m_pictures(pictures)
        , m_numberStyle(numberStyleOf(texts))
        , m_dateOrder(dateOrderOf(texts))
    {}

    void writeTables(const model::Page &page, std::vector<const model::Table *> tables);
    void writeScan(const model::Page &page);
    void writeLines(const model::Document &document);

private:
    [[nodiscard]] XmlElement beginSheet(const QString &name, const model::Page &page);
    [[nodiscard]] XmlElement beginRow(double height);
    void writeEmptyRow();
    void writeCell(const model::Cell &cell, double indent);
    void writeValue(const Number &number);
    QString cellStyle(const model::Cell &cell, const model::Style &textStyle, const QString &dataStyle, double indent);

    Sink m_sink;
    SheetPrinting m_printing;
    model::PictureSource &m_pictures;
    NumberStyle m_numberStyle;
    DateOrder m_dateOrder;
};

XmlElement SheetWriter::beginSheet(const QString &name, const model::Page &page)
{
    XmlElement sheet(m_sink.xml, "table:table"_L1);
    m_sink.xml.writeAttribute("table:name"_L1, name);
    m_sink.xml.writeAttribute("table:style-name"_L1, m_printing.sheetStyle(m_sink.styles, page.width, page.height));
    return sheet;
}

XmlElement SheetWriter::beginRow(double height)
{
    XmlElement row(m_sink.xml, "table:table-row"_L1);
    if (height > 0) {
        m_sink.xml.writeAttribute(
            "table:style-name"_L1,
            m_sink.styles.name(
                {"style:style"_L1,
                 {{"style:family"_L1, u"table-row"_s}},
                 {{"style:table-row-properties"_L1,
                   {{"style:row-height"_L1, pt(height)}, {"style:use-optimal-row-height"_L1, u"false"_s}}}}}));
    }
    return row;
}

void SheetWriter::writeEmptyRow()
{
    const XmlElement row = beginRow(0);
    m_sink.xml.writeEmptyElement("table:table-cell"_L1);
}

QString
SheetWriter::cellStyle(const model::Cell &cell, const model::Style &textStyle, const QString &dataStyle, double indent)
{
    Attributes cellProperties = {
        {"fo:border-left"_L1, borderText(cell.left)},
        {"fo:border-right"_L1, borderText(cell.right)},
        {"fo:border-top"_L1, borderText(cell.top)},
        {"fo:border-bottom"_L1, borderText(cell.bottom)},
        {"style:vertical-align"_L1, sheetVerticalAlignment(cell)}};
    if (cell.background) {
        cellProperties.emplace_back("fo:background-color"_L1, colourName(*cell.background));
    }
    if (wrapsInSheet(cell)) {
        cellProperties.emplace_back("fo:wrap-option"_L1, u"wrap"_s);
    }
    Attributes align;
    if (!cell.paragraphs.empty()) {
        const model::Paragraph &first = cell.paragraphs.front();
        align = {
            {"fo:text-align"_L1, alignmentName(first)},
            {"style:writing-mode"_L1, first.rightToLeft ? u"rl-tb"_s : u"lr-tb"_s}};
        cellProperties.emplace_back("style:text-align-source"_L1, u"fix"_s);
        if (indent > 0) {
            align.emplace_back("fo:margin-left"_L1, pt(indent));
        }
    }
    Element style{
        "style:style"_L1, {{"style:family"_L1, u"table-cell"_s}, {"style:parent-style-name"_L1, u"Default"_s}}};
    if (!dataStyle.isEmpty()) {
        style.attributes.emplace_back("style:data-style-name"_L1, dataStyle);
    }
    m_sink.styles.noteFont(textStyle);
    style.children = {
        {"style:table-cell-properties"_L1, cellProperties},
        {"style:paragraph-properties"_L1, align},
        {"style:text-properties"_L1, textAttributes(textStyle)}};
    return m_sink.styles.name(style);
}

void SheetWriter::writeValue(const Number &number)
{
    m_sink.xml.writeAttribute("office:value-type"_L1, number.percent ? "percentage"_L1 : "float"_L1);
    m_sink.xml.writeAttribute("office:value"_L1, QString::number(number.value, 'g', 15));
}

void SheetWriter::writeCell(const model::Cell &cell, double indent)
{
    QXmlStreamWriter &xml = m_sink.xml;
    const QString text = cellText(cell);
    const std::optional<Number> number = cellNumber(cell, m_numberStyle);
    const std::optional<SheetDate> date = readDate(text, m_dateOrder);
    const QString dataStyle = number ? numberFormat(m_sink.styles, *number)
                              : date ? dateFormat(m_sink.styles, *date)
                                     : QString();
    const model::Style textStyle = dominantStyle(model::runsOf(cell));
    const XmlElement element(xml, "table:table-cell"_L1);
    xml.writeAttribute("table:style-name"_L1, cellStyle(cell, textStyle, dataStyle, indent));
    writeSpans(xml, cell);
    if (number) {
        writeValue(*number);
        xml.writeTextElement("text:p"_L1, xmlText(text));
    } else if (date) {
        xml.writeAttribute("office:value-type"_L1, "date"_L1);
        xml.writeAttribute("office:date-value"_L1, date->day.toString(Qt::ISODate));
        xml.writeTextElement("text:p"_L1, xmlText(text));
    } else if (!text.isEmpty()) {
        xml.writeAttribute("office:value-type"_L1, "string"_L1);
        for (const model::Paragraph &paragraph : cell.paragraphs) {
            const XmlElement line(xml, "text:p"_L1);
            if (paragraph.listItem) {
                xml.writeCharacters(xmlText(paragraph.listItem->mark) + u' ');
            }
            writeRuns(m_sink, model::runsOf(paragraph), textStyle);
        }
    }
}

void SheetWriter::writeTables(const model::Page &page, std::vector<const model::Table *> tables)
{
    std::deque<model::Table> upright; // does not move its elements
    for (const model::Table *&table : tables) {
        if (table->rotation != 0) {
            table = &upright.emplace_back(model::uprightTable(*table));
        }
    }
    const XmlElement sheet = beginSheet(u"Page %1"_s.arg(page.number), page);
    const std::vector<double> widths = sheetColumns(tables);
    std::for_each(widths.begin(), widths.end(), [this](double width) { writeColumn(m_sink, width); });
    for (const model::Table *table : tables) {
        if (table != tables.front()) {
            writeEmptyRow();
        }
        const std::vector<double> heights = sheetRows(*table);
        const std::vector<double> indents = sheetIndents(*table);
        writeRows(
            m_sink.xml, *table, [&](int row) { return beginRow(*(heights.begin() + row)); },
            [&](const model::Cell &cell) { writeCell(cell, *(indents.begin() + (&cell - table->cells.data()))); });
    }
}

void SheetWriter::writeScan(const model::Page &page)
{
    const XmlElement sheet = beginSheet(u"Page %1"_s.arg(page.number), page);
    {
        const XmlElement shapes(m_sink.xml, "table:shapes"_L1);
        writePictures(m_sink, page, m_pictures, FrameAnchor::Sheet);
    }
    writeColumn(m_sink, page.width / 8);
    writeEmptyRow();
}

model::Cell cellOf(const model::Line &line)
{
    model::Paragraph paragraph;
    paragraph.lines = {line};
    model::Cell cell;
    cell.paragraphs.push_back(std::move(paragraph));
    return cell;
}

void SheetWriter::writeLines(const model::Document &document)
{
    const XmlElement sheet = beginSheet(u"Text"_s, document.pages.empty() ? model::Page{} : document.pages.front());
    writeColumn(m_sink, lineColumnWidth);
    for (const model::Page &page : document.pages) {
        forEachParagraph(page, [this](const model::Paragraph &paragraph) {
            for (const model::Line &line : paragraph.lines) {
                const XmlElement row = beginRow(sheetLineHeight(line));
                writeCell(cellOf(line), 0);
            }
        });
    }
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
    SheetWriter writer(file, pictures, texts);
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
