// SPDX-License-Identifier: GPL-3.0-or-later
#include "html_table.h"

#include "base/xml_text.h"
#include "document/rotation.h"
#include "html_style.h"
#include "html_text.h"

#include <QXmlStreamWriter>

#include <algorithm>
#include <optional>

namespace quorra {

namespace {

using model::Cell;
using model::Paragraph;
using model::Style;

void writeSpan(QXmlStreamWriter &xml, const char *name, int span)
{
    if (span > 1) {
        xml.writeAttribute(QLatin1String(name), QString::number(span));
    }
}

void writeCellText(QXmlStreamWriter &xml, const Cell &cell, bool cellRightToLeft, const TextContext &context)
{
    bool first = true;
    for (const Paragraph &paragraph : cell.paragraphs) {
        if (!first) {
            xml.writeEmptyElement(QStringLiteral("br"));
        }
        first = false;
        std::optional<XmlElement> otherDirection;
        if (paragraph.rightToLeft != cellRightToLeft) {
            otherDirection.emplace(xml, QStringLiteral("span"));
            xml.writeAttribute(
                QStringLiteral("dir"), paragraph.rightToLeft ? QStringLiteral("rtl") : QStringLiteral("ltr"));
        }
        if (paragraph.listItem) {
            xml.writeCharacters(xmlText(paragraph.listItem->mark) + QLatin1Char(' '));
        }
        writeInline(xml, model::runsOf(paragraph), context);
    }
}

class TableWriter
{
public:
    TableWriter(QXmlStreamWriter &xml, const model::Table &table, const Style &style, HtmlAnchors &anchors)
        : m_xml(xml)
        , m_table(table)
        , m_style(style)
        , m_anchors(anchors)
        , m_headerRows(headerRows(table))
    {}

    void write()
    {
        for (const Cell &cell : m_table.cells) {
            openRows(cell.row);
            writeCell(cell);
        }
        openRows(m_table.rows() - 1); // rows covered by cells above
        m_line.reset();
        m_group.reset();
    }

private:
    /// Returns the number of rows in the head: none if there is nothing below it. A head that a cell extends beyond
    /// goes down to the end of the cell.
    static int headerRows(const model::Table &table)
    {
        int rows = table.headerRows;
        for (const Cell &cell : table.cells) {
            rows = cell.row < rows ? std::max(rows, cell.row + cell.rowSpan) : rows;
        }
        return rows < table.rows() ? rows : 0;
    }

    void openRows(int last)
    {
        while (m_row < last) {
            if (m_line) {
                m_line.reset();
                m_xml.writeCharacters(QStringLiteral("\n"));
            }
            ++m_row;
            if (m_row == 0 || m_row == m_headerRows) {
                m_group.reset();
                m_group.emplace(m_xml, m_row < m_headerRows ? QStringLiteral("thead") : QStringLiteral("tbody"));
            }
            m_line.emplace(m_xml, QStringLiteral("tr"));
            m_xml.writeCharacters(QString());
        }
    }

    void writeCell(const Cell &cell)
    {
        const std::vector<model::Run> runs = model::runsOf(cell);
        const bool header = cell.row < m_headerRows && !model::plainText(runs).trimmed().isEmpty();
        const XmlElement element(m_xml, header ? QStringLiteral("th") : QStringLiteral("td"));
        if (header) {
            m_xml.writeAttribute(
                QStringLiteral("scope"), cell.columnSpan > 1 ? QStringLiteral("colgroup") : QStringLiteral("col"));
        }
        writeSpan(m_xml, "rowspan", cell.rowSpan);
        writeSpan(m_xml, "colspan", cell.columnSpan);
        const Style textStyle = elementStyle(runs, m_style, false);
        writeStyle(m_xml, joinedStyle({runStyle(textStyle, m_style, false), cellStyle(cell)}));
        const bool rightToLeft = !cell.paragraphs.empty() && cell.paragraphs.front().rightToLeft;
        writeDirection(m_xml, rightToLeft);
        m_xml.writeCharacters(QString()); // an empty cell must not become a self-closing element
        writeCellText(m_xml, cell, rightToLeft, {textStyle, false, false, false, &m_anchors});
    }

    QXmlStreamWriter &m_xml;
    const model::Table &m_table;
    const Style &m_style;
    HtmlAnchors &m_anchors;
    int m_headerRows;
    int m_row = -1;
    std::optional<XmlElement> m_group;
    std::optional<XmlElement> m_line;
};

} // namespace

void writeHtmlTable(
    QXmlStreamWriter &xml, const model::Table &table, const Style &around, bool centred, HtmlAnchors &anchors)
{
    if (table.rotation != 0) {
        writeHtmlTable(xml, model::uprightTable(table), around, centred, anchors);
        return;
    }
    const XmlElement container = startBlock(xml, QStringLiteral("div"), "wide");
    xml.writeAttribute(QStringLiteral("tabindex"), QStringLiteral("0")); // for scrolling with the keyboard
    const XmlElement element = startElement(xml, QStringLiteral("table"), centred ? "middle" : nullptr);
    const Style textStyle = elementStyle(table, around);
    writeStyle(xml, runStyle(textStyle, around, false));
    TableWriter(xml, table, textStyle, anchors).write();
}

} // namespace quorra
