// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/html_writer.h"

#include "base/xml_text.h"
#include "document/faint_text.h"
#include "document/language.h"
#include "document/page_walk.h"
#include "html_paragraph.h"
#include "html_picture.h"
#include "html_style.h"
#include "html_table.h"
#include "html_text.h"

#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace quorra {

namespace {

using model::Block;
using model::Figure;
using model::Page;
using model::Paragraph;
using model::Style;
using model::Table;

struct Thresholds
{
    double minCentredIndent = 12; ///< points; on the left of something centred: a full-width block is not centred
    double maxOffCentre = 0.1;    ///< share of the column's width; by which the spaces on both sides differ
};
constexpr Thresholds thresholds;

/// Returns whether a table or picture is centred in its column, or on the page if there is a single column.
bool isCentred(const Page &page, const model::Section &section, const Block &block)
{
    const auto at = static_cast<std::size_t>(block.column);
    if (at >= section.columns.size()) {
        return false;
    }
    const Box around = section.columns.size() == 1 ? page.content : section.columns[at];
    const Box box = block.box();
    const double left = box.left - around.left;
    const double right = around.right - box.right;
    return left > thresholds.minCentredIndent && std::abs(left - right) < thresholds.maxOffCentre * around.width();
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
        writeDocument(options);
        m_xml.writeEndDocument();
    }

private:
    /// The elements of an open list and of its last item.
    struct OpenList
    {
        XmlElement list;
        std::optional<XmlElement> item;
    };

    void writeDocument(const HtmlOptions &options)
    {
        const XmlElement html(m_xml, QStringLiteral("html"));
        m_xml.writeDefaultNamespace(QStringLiteral("http://www.w3.org/1999/xhtml"));
        const QString language = model::languageOf(m_document);
        if (!language.isEmpty()) {
            m_xml.writeAttribute(QStringLiteral("lang"), language);
        }
        writeHead(options);
        const XmlElement body(m_xml, QStringLiteral("body"));
        m_xml.writeCharacters(QStringLiteral("\n"));
        for (const Page &page : m_document.pages) {
            writePage(page);
        }
    }

    void writeHead(const HtmlOptions &options)
    {
        const XmlElement head(m_xml, QStringLiteral("head"));
        m_xml.writeEmptyElement(QStringLiteral("meta"));
        m_xml.writeAttribute(QStringLiteral("charset"), QStringLiteral("utf-8"));
        m_xml.writeEmptyElement(QStringLiteral("meta"));
        m_xml.writeAttribute(QStringLiteral("name"), QStringLiteral("viewport"));
        m_xml.writeAttribute(QStringLiteral("content"), QStringLiteral("width=device-width, initial-scale=1"));
        const model::FileFacts &facts = m_document.facts;
        const QString title = facts.title.isEmpty() ? options.title : facts.title;
        m_xml.writeTextElement(QStringLiteral("title"), title.isEmpty() ? QStringLiteral("Document") : xmlText(title));
        writeMeta("author", facts.author);
        writeMeta("description", facts.subject);
        writeMeta("keywords", facts.keywords);
        m_xml.writeTextElement(QStringLiteral("style"), styleSheet(m_document, m_usual));
    }

    void writeMeta(const char *name, const QString &content)
    {
        if (!content.isEmpty()) {
            m_xml.writeEmptyElement(QStringLiteral("meta"));
            m_xml.writeAttribute(QStringLiteral("name"), QLatin1String(name));
            m_xml.writeAttribute(QStringLiteral("content"), xmlText(content));
        }
    }

    void writePage(const Page &page)
    {
        const XmlElement element = startBlock(m_xml, QStringLiteral("section"), page.scanned ? "page scan" : "page");
        m_xml.writeAttribute(QStringLiteral("id"), QStringLiteral("page-%1").arg(page.number));
        m_xml.writeCharacters(QString()); // prevents a self-closing element
        writePageHeaders(QStringLiteral("header"), page, page.header);
        for (const model::Section &section : page.sections) {
            writeBlocks(page, section);
        }
        std::for_each(page.comments.begin(), page.comments.end(), [this](const auto &each) { writeComment(each); });
        writePageHeaders(QStringLiteral("footer"), page, page.footer);
    }

    void writeComment(const model::Comment &comment)
    {
        const XmlElement element = startBlock(m_xml, QStringLiteral("aside"), "comment");
        writeStyle(m_xml, QStringLiteral("border-left:2px solid;padding-left:.6em"));
        if (!comment.author.isEmpty()) {
            m_xml.writeTextElement(QStringLiteral("cite"), xmlText(comment.author));
            m_xml.writeCharacters(QStringLiteral(": "));
        }
        m_xml.writeCharacters(xmlText(comment.text));
    }

    void writePageHeaders(const QString &element, const Page &page, const std::vector<Paragraph> &paragraphs)
    {
        for (const Paragraph &paragraph : paragraphs) {
            writeHtmlPageHeader(m_xml, element, page, paragraph, contextOf(page, paragraph));
        }
    }

    void writeBlocks(const Page &page, const model::Section &section)
    {
        for (const Block &block : section.blocks) {
            const Paragraph *paragraph = block.paragraph();
            if (!paragraph || !paragraph->listItem) {
                closeLists(0);
            }
            setBackground(paragraph ? paragraph->shading : std::nullopt);
            if (const Table *table = block.table()) {
                writeHtmlTable(m_xml, *table, m_usual, isCentred(page, section, block));
            } else if (const Figure *figure = block.figure()) {
                writeFigure(page, *figure, isCentred(page, section, block));
            } else if (paragraph->listItem) {
                writeListItem(page, *paragraph);
            } else {
                writeHtmlParagraph(m_xml, *paragraph, contextOf(page, *paragraph));
            }
        }
        closeLists(0);
        setBackground({});
    }

    /// Consecutive blocks with the same background share an element with this background.
    void setBackground(std::optional<Colour> background)
    {
        if (background == m_background) {
            return;
        }
        closeLists(0);
        m_shaded.reset();
        if (background) {
            m_shaded.emplace(startElement(m_xml, QStringLiteral("div"), "shaded"));
            writeStyle(m_xml, QStringLiteral("background:") + colourName(*background));
        }
        m_background = background;
    }

    void closeLists(std::size_t wanted)
    {
        while (m_openLists.size() > wanted) {
            m_openLists.pop_back();
        }
    }

    /// Leaves the item open for a nested list.
    void writeListItem(const Page &page, const Paragraph &item)
    {
        const auto level = static_cast<std::size_t>(std::max(0, item.listItem->level));
        const std::size_t wanted = std::min(level, m_openLists.size()) + 1;
        closeLists(wanted);
        if (m_openLists.size() == wanted) {
            m_openLists.back().item.reset();
            m_xml.writeCharacters(QStringLiteral("\n"));
        } else {
            const QString tag = item.listItem->ordered ? QStringLiteral("ol") : QStringLiteral("ul");
            m_openLists.push_back({startBlock(m_xml, tag, showsMark(*item.listItem) ? "counted" : nullptr), {}});
        }
        m_openLists.back().item.emplace(m_xml, QStringLiteral("li"));
        writeHtmlListText(m_xml, item, contextOf(page, item));
    }

    ParagraphContext contextOf(const Page &page, const Paragraph &paragraph) const
    {
        return {m_usual, !m_background && model::losesBackground(page, paragraph)};
    }

    /// Writes the labels as text if there is no picture.
    void writeFigure(const Page &page, const Figure &figure, bool centred)
    {
        const model::EncodedPicture encoded = m_pictures.encode(figure, model::DrawingWords::InPicture);
        if (!encoded.bytes.isEmpty()) {
            const QString alt = !figure.alternative.isEmpty() ? xmlText(figure.alternative)
                                : page.scanned                ? QStringLiteral("Page %1").arg(page.number)
                                                              : QString();
            writeHtmlFigure(m_xml, encoded, figure, alt, centred);
            return;
        }
        for (const Paragraph &label : figure.labels) {
            writeHtmlParagraph(m_xml, label, contextOf(page, label));
        }
    }

    QXmlStreamWriter m_xml;
    const model::Document &m_document;
    model::PictureSource &m_pictures;
    Style m_usual;
    std::optional<Colour> m_background;
    std::optional<XmlElement> m_shaded;
    std::vector<OpenList> m_openLists;
};

} // namespace

void writeHtml(
    QIODevice &out, const model::Document &document, model::PictureSource &pictures, const HtmlOptions &options)
{
    HtmlWriter(out, document, pictures).write(options);
}

} // namespace quorra
