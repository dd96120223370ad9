// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/writers/html_writer.h"

#include "engine/writers/html_style.h"
#include "engine/writers/xml_text.h"

#include <QXmlStreamWriter>

#include <cmath>

namespace quorra {

namespace {

using model::Block;
using model::Cell;
using model::Page;
using model::Paragraph;
using model::Picture;
using model::Role;
using model::Run;
using model::Table;

const char *tagOf(const Paragraph &paragraph)
{
    switch (paragraph.role) {
    case Role::Heading1:
        return "h1";
    case Role::Heading2:
        return "h2";
    case Role::Heading3:
        return "h3";
    default:
        return isListing(paragraph) && paragraph.role == Role::Body ? "pre" : "p";
    }
}

class HtmlWriter
{
public:
    HtmlWriter(QIODevice &out, const model::Document &document, model::PictureSource &pictures)
        : m_xml(&out)
        , m_document(document)
        , m_pictures(pictures)
        , m_usual(usualStyle(document))
    {}

    void write(const HtmlOptions &options)
    {
        if (options.xhtml) {
            m_xml.writeStartDocument();
        }
        m_xml.writeDTD(QStringLiteral("<!DOCTYPE html>"));
        m_xml.writeStartElement(QStringLiteral("html"));
        m_xml.writeDefaultNamespace(QStringLiteral("http://www.w3.org/1999/xhtml"));
        writeHead(options);
        m_xml.writeStartElement(QStringLiteral("body"));
        for (const Page &page : m_document.pages) {
            writePage(page);
        }
        m_xml.writeEndElement();
        m_xml.writeEndElement();
        m_xml.writeEndDocument();
    }

private:
    void writeHead(const HtmlOptions &options)
    {
        m_xml.writeStartElement(QStringLiteral("head"));
        m_xml.writeEmptyElement(QStringLiteral("meta"));
        m_xml.writeAttribute(QStringLiteral("charset"), QStringLiteral("utf-8"));
        m_xml.writeTextElement(
            QStringLiteral("title"), options.title.isEmpty() ? QStringLiteral("Document") : xmlText(options.title));
        m_xml.writeTextElement(QStringLiteral("style"), styleSheet(m_document, m_usual));
        m_xml.writeEndElement();
    }

    void writePage(const Page &page)
    {
        start("section", page.scanned ? "page scan" : "page");
        m_xml.writeAttribute(QStringLiteral("id"), QStringLiteral("page-%1").arg(page.number));
        m_xml.writeCharacters(QString()); // an empty page must not become a self-closing element
        writeHeads(page, true);
        for (const model::Section &section : page.sections) {
            writeBlocks(page, section);
        }
        writeHeads(page, false);
        m_xml.writeEndElement();
    }

    void writeHeads(const Page &page, bool top)
    {
        for (const Block &head : page.runningHeads) {
            if ((head.box().centreY() < page.height / 2) == top && head.paragraph()) {
                writeText(top ? "header" : "footer", nullptr, *head.paragraph());
            }
        }
    }

    void writeBlocks(const Page &page, const model::Section &section)
    {
        int openLists = 0;
        const auto setLists = [&](int wanted) {
            for (; openLists > wanted; --openLists) {
                m_xml.writeEndElement();
                m_xml.writeEndElement();
            }
        };
        for (const Block &block : section.blocks) {
            const Paragraph *paragraph = block.paragraph();
            if (!paragraph || paragraph->role != Role::ListItem) {
                setLists(0);
            }
            if (const Table *table = block.table()) {
                writeTable(*table);
            } else if (const Picture *picture = block.picture()) {
                writePicture(page, *picture);
            } else if (paragraph->role == Role::ListItem) {
                openLists = writeListItem(*paragraph, openLists);
            } else {
                writeText(tagOf(*paragraph), paragraph->role == Role::Caption ? "caption" : nullptr, *paragraph);
            }
        }
        setLists(0);
    }

    // Leaves the item open for a list inside it; returns how many lists are open.
    int writeListItem(const Paragraph &item, int open)
    {
        const int wanted = std::min(item.listLevel + 1, open + 1);
        for (; open > wanted; --open) {
            m_xml.writeEndElement();
            m_xml.writeEndElement();
        }
        if (open == wanted) {
            m_xml.writeEndElement();
        } else {
            start("ul", item.listOrdered ? "counted" : nullptr);
        }
        start("li", nullptr);
        if (item.listOrdered) { // the mark as it stands: a list that goes on after other text keeps its number
            m_xml.writeCharacters(xmlText(item.listMark) + QLatin1Char(' '));
        }
        writeRuns(item);
        return wanted;
    }

    void writeText(const char *tag, const char *htmlClass, const Paragraph &paragraph)
    {
        start(tag, htmlClass);
        const QString style = paragraphStyle(paragraph);
        if (!style.isEmpty()) {
            m_xml.writeAttribute(QStringLiteral("style"), style);
        }
        if (paragraph.rightToLeft) {
            m_xml.writeAttribute(QStringLiteral("dir"), QStringLiteral("rtl"));
        }
        writeRuns(paragraph);
        m_xml.writeEndElement();
    }

    void writeRuns(const Paragraph &paragraph)
    {
        m_xml.writeCharacters(QString());
        const bool heading = paragraph.role >= Role::Heading1 && paragraph.role <= Role::Heading3;
        for (const Run &run : paragraph.runs) {
            writeRun(run, heading);
        }
    }

    void writeRun(const Run &run, bool heading)
    {
        int open = 0;
        const auto element = [&](const char *tag) {
            start(tag, nullptr);
            ++open;
        };
        if (!run.style.link.isEmpty()) {
            element("a");
            m_xml.writeAttribute(QStringLiteral("href"), xmlText(linkAddress(run.style.link)));
        }
        const QString style = runStyle(run.style, m_usual, heading);
        if (!style.isEmpty()) {
            element("span");
            m_xml.writeAttribute(QStringLiteral("style"), style);
        }
        if (run.style.bold && !heading) {
            element("b");
        }
        if (run.style.italic) {
            element("i");
        }
        m_xml.writeCharacters(xmlText(run.text));
        for (; open > 0; --open) {
            m_xml.writeEndElement();
        }
    }

    void writeTable(const Table &table)
    {
        start("table", table.ruled ? "ruled" : nullptr);
        int row = -1;
        for (const Cell &cell : table.cells) {
            for (; row < cell.row; ++row) {
                if (row >= 0) {
                    m_xml.writeEndElement();
                }
                start("tr", nullptr);
                m_xml.writeCharacters(QString());
            }
            writeCell(cell, cell.row < table.headerRows);
        }
        for (; row + 1 < table.rows() && row >= 0; ++row) { // rows that cells from above fill
            m_xml.writeEndElement();
            start("tr", nullptr);
            m_xml.writeCharacters(QString());
        }
        if (row >= 0) {
            m_xml.writeEndElement();
        }
        m_xml.writeEndElement();
    }

    void writeCell(const Cell &cell, bool header)
    {
        start(header ? "th" : "td", nullptr);
        if (cell.rowSpan > 1) {
            m_xml.writeAttribute(QStringLiteral("rowspan"), QString::number(cell.rowSpan));
        }
        if (cell.columnSpan > 1) {
            m_xml.writeAttribute(QStringLiteral("colspan"), QString::number(cell.columnSpan));
        }
        const QString style = cellStyle(cell);
        if (!style.isEmpty()) {
            m_xml.writeAttribute(QStringLiteral("style"), style);
        }
        m_xml.writeCharacters(QString());
        bool first = true;
        for (const Paragraph &paragraph : cell.paragraphs) {
            if (!first) {
                m_xml.writeEmptyElement(QStringLiteral("br"));
            }
            first = false;
            if (!paragraph.listMark.isEmpty()) {
                m_xml.writeCharacters(xmlText(paragraph.listMark) + QLatin1Char(' '));
            }
            for (const Run &run : paragraph.runs) {
                writeRun(run, header);
            }
        }
        m_xml.writeEndElement();
    }

    void writePicture(const Page &page, const Picture &picture)
    {
        const model::EncodedPicture encoded = m_pictures.encode(page.number, picture.box, picture.kind);
        if (encoded.bytes.isEmpty()) {
            return;
        }
        start("p", "picture");
        m_xml.writeEmptyElement(QStringLiteral("img"));
        m_xml.writeAttribute(QStringLiteral("alt"), QString());
        constexpr double pixelsInPoint = 96.0 / 72;
        m_xml.writeAttribute(
            QStringLiteral("width"), QString::number(std::lround(picture.box.width() * pixelsInPoint)));
        m_xml.writeAttribute(
            QStringLiteral("height"), QString::number(std::lround(picture.box.height() * pixelsInPoint)));
        m_xml.writeAttribute(
            QStringLiteral("src"),
            QStringLiteral("data:%1;base64,%2")
                .arg(QString::fromLatin1(encoded.mimeType), QString::fromLatin1(encoded.bytes.toBase64())));
        m_xml.writeEndElement();
    }

    void start(const char *tag, const char *htmlClass)
    {
        m_xml.writeStartElement(QLatin1String(tag));
        if (htmlClass) {
            m_xml.writeAttribute(QStringLiteral("class"), QLatin1String(htmlClass));
        }
    }

    QXmlStreamWriter m_xml;
    const model::Document &m_document;
    model::PictureSource &m_pictures;
    model::Style m_usual;
};

} // namespace

void writeHtml(
    QIODevice &out, const model::Document &document, model::PictureSource &pictures, const HtmlOptions &options)
{
    HtmlWriter(out, document, pictures).write(options);
}

} // namespace quorra
