// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheets/sheets_writer.h"

#include "base/xml_text.h"
#include "cell_repairs.h"
#include "cell_value.h"
#include "document/language.h"
#include "document/page_walk.h"
#include "odf/odf_frames.h"
#include "odf/odf_tables.h"
#include "sheet_layout.h"
#include "sheet_names.h"
#include "sheet_plan.h"
#include "sheet_printing.h"

#include <algorithm>
#include <optional>
#include <variant>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

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

/// How a cell shows its text.
struct CellLook
{
    QString verticalAlignment;
    double indent = 0; ///< points
    bool wraps = false;
    bool isText = false; ///< even if it could be read as a number
};

QStringList cellTexts(const model::Table &table)
{
    QStringList texts;
    for (const model::Cell &cell : table.cells) {
        texts.push_back(cellText(cell));
    }
    return texts;
}

/// Returns how the tables of the document write numbers and dates.
CellHabits documentHabits(const model::Document &document)
{
    QStringList texts;
    for (const model::Page &page : document.pages) {
        forEachBlock(page, [&texts](const model::Block &block) {
            if (const model::Table *table = block.table()) {
                texts += cellTexts(*table);
            }
        });
    }
    return cellHabits(texts, model::languageOf(document));
}

/// Writes the sheets of a document.
class SheetWriter
{
public:
    SheetWriter(OdfFile &file, model::PictureSource &pictures, const CellHabits &habits)
        : m_sink{file.body(), file.styles()}
        , m_printing(file.masters())
        , m_pictures(pictures)
        , m_habits(habits)
    {}

    void write(const QString &name, const model::Page &page, const SheetPlan &plan);

private:
    [[nodiscard]] XmlElement beginRow(double height);
    void writeBand(const TextBand &band);
    void writeBand(const TableBand &band, const SheetPlan &plan);
    void writeBand(const PictureBand &band);
    void writeEmptyRow(double height);
    void writeCoveredRow(double height, int columns);
    void writeCovered(int columns);
    void writeCell(const model::Cell &cell, const CellHabits &habits, const CellLook &look);
    QString
    cellStyle(const model::Cell &cell, const model::Style &textStyle, const QString &dataStyle, const CellLook &look);

    Sink m_sink;
    SheetPrinting m_printing;
    model::PictureSource &m_pictures;
    CellHabits m_habits; ///< of the document
};

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

void SheetWriter::writeEmptyRow(double height)
{
    const XmlElement row = beginRow(height);
    m_sink.xml.writeEmptyElement("table:table-cell"_L1);
}

void SheetWriter::writeCovered(int columns)
{
    if (columns > 0) {
        m_sink.xml.writeEmptyElement("table:covered-table-cell"_L1);
        m_sink.xml.writeAttribute("table:number-columns-repeated"_L1, QString::number(columns));
    }
}

void SheetWriter::writeCoveredRow(double height, int columns)
{
    const XmlElement row = beginRow(height);
    writeCovered(columns);
}

QString SheetWriter::cellStyle(
    const model::Cell &cell, const model::Style &textStyle, const QString &dataStyle, const CellLook &look)
{
    Attributes cellProperties = {
        {"fo:border-left"_L1, borderText(cell.left)},
        {"fo:border-right"_L1, borderText(cell.right)},
        {"fo:border-top"_L1, borderText(cell.top)},
        {"fo:border-bottom"_L1, borderText(cell.bottom)},
        {"style:vertical-align"_L1, look.verticalAlignment}};
    if (cell.background) {
        cellProperties.emplace_back("fo:background-color"_L1, colourName(*cell.background));
    }
    if (look.wraps) {
        cellProperties.emplace_back("fo:wrap-option"_L1, u"wrap"_s);
    }
    Attributes align;
    if (!cell.paragraphs.empty()) {
        const model::Paragraph &first = cell.paragraphs.front();
        align = {
            {"fo:text-align"_L1, alignmentName(first)},
            {"style:writing-mode"_L1, first.rightToLeft ? u"rl-tb"_s : u"lr-tb"_s}};
        cellProperties.emplace_back("style:text-align-source"_L1, u"fix"_s);
        if (look.indent > 0) {
            align.emplace_back("fo:margin-left"_L1, pt(look.indent));
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

/// Returns the runs without links to pages, which a workbook does not have.
std::vector<model::Run> withoutPageLinks(std::vector<model::Run> runs)
{
    for (model::Run &run : runs) {
        if (run.link.startsWith(u'#')) {
            run.link.clear();
        }
    }
    return runs;
}

void SheetWriter::writeCell(const model::Cell &cell, const CellHabits &habits, const CellLook &look)
{
    QXmlStreamWriter &xml = m_sink.xml;
    const CellValue value = look.isText ? CellValue{} : cellValue(cell, habits);
    const model::Style textStyle = dominantStyle(model::runsOf(cell));
    const XmlElement element(xml, "table:table-cell"_L1);
    xml.writeAttribute("table:style-name"_L1, cellStyle(cell, textStyle, dataStyle(m_sink.styles, value), look));
    writeSpans(xml, cell);
    writeValue(xml, value);
    if (!std::holds_alternative<std::monostate>(value)) {
        xml.writeTextElement("text:p"_L1, xmlText(cellText(cell)));
        return;
    }
    const std::vector<std::vector<model::Run>> lines = cellLines(cell);
    if (std::any_of(lines.begin(), lines.end(), [](const std::vector<model::Run> &line) { return !line.empty(); })) {
        xml.writeAttribute("office:value-type"_L1, "string"_L1);
        for (const std::vector<model::Run> &line : lines) {
            const XmlElement paragraph(xml, "text:p"_L1);
            writeRuns(m_sink, withoutPageLinks(line), textStyle);
        }
    }
}

/// Returns a cell that shows the text.
model::Cell cellOf(const TextPart &part, std::size_t rows)
{
    model::Cell cell;
    cell.columnSpan = part.columnSpan;
    cell.rowSpan = static_cast<int>(rows);
    cell.top = part.paragraph->borderAbove.line;
    cell.bottom = part.paragraph->borderBelow.line;
    cell.background = part.paragraph->shading;
    cell.paragraphs.push_back(*part.paragraph);
    return cell;
}

void SheetWriter::writeBand(const TextBand &band)
{
    const std::vector<double> &heights = band.rowHeights;
    {
        const XmlElement row = beginRow(heights.front());
        const bool divided = band.parts.size() > 1;
        for (const TextPart &part : band.parts) {
            const bool wraps = divided || part.columnSpan > 1 || heights.size() > 1 || part.paragraph->lines.size() > 1;
            writeCell(cellOf(part, heights.size()), m_habits, {u"bottom"_s, textIndent(*part.paragraph), wraps});
            writeCovered(part.columnSpan - 1);
        }
    }
    const int columns = band.parts.back().column + band.parts.back().columnSpan;
    std::for_each(heights.begin() + 1, heights.end(), [&](double height) { writeCoveredRow(height, columns); });
}

void SheetWriter::writeBand(const TableBand &band, const SheetPlan &plan)
{
    const model::Table &table = band.table;
    const std::vector<double> heights = sheetRows(table, plan.columnWidths);
    const std::vector<double> indents = sheetIndents(table);
    const CellHabits habits = tableHabits(cellTexts(table), m_habits);
    const std::vector<bool> counting = countingCells(table);
    std::optional<XmlElement> head;
    const auto begin = [&](int row) {
        if (plan.headRows > 0 && row == 0) {
            head.emplace(m_sink.xml, "table:table-header-rows"_L1);
        } else if (row == table.headerRows) {
            head.reset();
        }
        return beginRow(*(heights.begin() + row));
    };
    writeRows(m_sink.xml, table, begin, [&](const model::Cell &cell) {
        const auto index = &cell - table.cells.data();
        const bool isText = *(counting.begin() + index);
        writeCell(
            cell, habits,
            {sheetVerticalAlignment(cell), *(indents.begin() + index), wrapsInSheet(cell, plan.columnWidths), isText});
    });
}

void SheetWriter::writeBand(const PictureBand &band)
{
    {
        const XmlElement row = beginRow(band.rowHeights.front());
        const XmlElement cell(m_sink.xml, "table:table-cell"_L1);
        for (const model::Figure *figure : band.figures) {
            const Box &box = figure->box;
            const double left = box.left - band.box.left;
            const double top = box.top - band.box.top;
            writePicture(
                m_sink, m_pictures.encode(*figure, model::DrawingWords::InPicture),
                {left, top, left + box.width(), top + box.height()}, FrameAnchor::Sheet);
        }
    }
    std::for_each(band.rowHeights.begin() + 1, band.rowHeights.end(), [this](double height) { writeEmptyRow(height); });
}

void SheetWriter::write(const QString &name, const model::Page &page, const SheetPlan &plan)
{
    const XmlElement sheet(m_sink.xml, "table:table"_L1);
    m_sink.xml.writeAttribute("table:name"_L1, name);
    m_sink.xml.writeAttribute(
        "table:style-name"_L1, m_printing.sheetStyle(m_sink.styles, page.width, page.height, plan.rightToLeft));
    for (const double width : plan.columnWidths) {
        writeColumn(m_sink, width);
    }
    if (plan.bands.empty()) {
        writeEmptyRow(0);
    }
    for (const SheetBand &band : plan.bands) {
        if (const auto *text = std::get_if<TextBand>(&band)) {
            writeBand(*text);
        } else if (const auto *table = std::get_if<TableBand>(&band)) {
            writeBand(*table, plan);
        } else if (const auto *pictures = std::get_if<PictureBand>(&band)) {
            writeBand(*pictures);
        } else {
            writeEmptyRow(0);
        }
    }
}

} // namespace

std::vector<int> writeSheets(OdfFile &file, const model::Document &document, model::PictureSource &pictures)
{
    const SheetPlanner planner(document);
    const std::vector<QString> names = sheetNames(document.pages);
    SheetWriter writer(file, pictures, documentHabits(document));
    std::vector<int> headRows;
    auto name = names.begin();
    for (const model::Page &page : document.pages) {
        if (!planner.isContinuation(page)) {
            const SheetPlan plan = planner.plan(page);
            writer.write(*name, page, plan);
            headRows.push_back(plan.headRows);
        }
        ++name;
    }
    return headRows;
}

} // namespace quorra::office
