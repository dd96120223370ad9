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

void writeCell(QXmlStreamWriter &xml, const Cell &cell, bool header, const Style &around)
{
    const XmlElement element(xml, header ? QStringLiteral("th") : QStringLiteral("td"));
    writeSpan(xml, "rowspan", cell.rowSpan);
    writeSpan(xml, "colspan", cell.columnSpan);
    const Style textStyle = elementStyle(model::runsOf(cell), around, false);
    const QString style = joinedStyle({runStyle(textStyle, around, false), cellStyle(cell)});
    writeStyle(xml, style);
    const bool rightToLeft = !cell.paragraphs.empty() && cell.paragraphs.front().rightToLeft;
    writeDirection(xml, rightToLeft);
    xml.writeCharacters(QString()); // an empty cell must not become a self-closing element
    writeCellText(xml, cell, rightToLeft, {textStyle, false, false, false});
}

} // namespace

void writeHtmlTable(QXmlStreamWriter &xml, const model::Table &table, const Style &around, bool centred)
{
    if (table.rotation != 0) {
        writeHtmlTable(xml, model::uprightTable(table), around, centred);
        return;
    }
    const XmlElement container = startBlock(xml, QStringLiteral("div"), "wide");
    const XmlElement element = startElement(xml, QStringLiteral("table"), centred ? "middle" : nullptr);
    const Style textStyle = elementStyle(table, around);
    const QString style = runStyle(textStyle, around, false);
    writeStyle(xml, style);
    int row = -1;
    std::optional<XmlElement> line;
    const auto openRow = [&] {
        if (line) {
            line.reset();
            xml.writeCharacters(QStringLiteral("\n"));
        }
        line.emplace(xml, QStringLiteral("tr"));
        xml.writeCharacters(QString());
        ++row;
    };
    for (const Cell &cell : table.cells) {
        while (row < cell.row) {
            openRow();
        }
        writeCell(xml, cell, cell.row < table.headerRows, textStyle);
    }
    while (row + 1 < table.rows() && row >= 0) { // rows covered by cells above
        openRow();
    }
}

} // namespace quorra
