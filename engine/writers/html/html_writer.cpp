// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/html_writer.h"

#include "base/xml_text.h"
#include "document/faint_text.h"
#include "document/language.h"
#include "document/page_walk.h"
#include "document/text.h"
#include "html_anchors.h"
#include "html_headings.h"
#include "html_navigation.h"
#include "html_page_edges.h"
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
        , m_anchors(document)
        , m_headings(document)
        , m_numbers(document)
        , m_headers(htmlPageHeaders(document, m_numbers))
        , m_footers(htmlPageFooters(document, m_numbers))
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
        m_xml.writeAttribute(QStringLiteral("lang"), language.isEmpty() ? QStringLiteral("und") : language);
        const QString title = titleOf(options);
        writeHead(title);
        const XmlElement body(m_xml, QStringLiteral("body"));
        m_xml.writeCharacters(QStringLiteral("\n"));
        writeHtmlNavigation(m_xml, m_document, m_headings);
        writeDocumentEdge(QStringLiteral("header"), m_headers);
        writeMain(title);
        writeDocumentEdge(QStringLiteral("footer"), m_footers);
    }

    QString titleOf(const HtmlOptions &options) const
    {
        for (const QString &title : {m_document.facts.title, m_headings.title(), options.title}) {
            QString text = xmlText(title).simplified();
            if (!text.isEmpty()) {
                return text;
            }
        }
        return QStringLiteral("Document");
    }

    void writeMain(const QString &title)
    {
        const XmlElement main = startBlock(m_xml, QStringLiteral("main"));
        if (m_headings.title().isEmpty()) { // for screen readers
            const XmlElement heading = startBlock(m_xml, QStringLiteral("h1"), "unseen");
            m_xml.writeCharacters(title);
        }
        for (const Page &page : m_document.pages) {
            writePage(page);
        }
    }

    /// The page headers or footers of the whole document, once.
    void writeDocumentEdge(const QString &tag, const HtmlPageEdge &edge)
    {
        if (!edge.ofDocument.empty()) {
            const XmlElement element = startBlock(m_xml, tag);
            for (const HtmlEdgePart &part : edge.ofDocument) {
                writePageHeader(*part.page, *part.paragraph);
            }
        }
    }

    /// Those that begin to appear on the page.
    void writePageEdge(const QString &tag, const Page &page, const HtmlPageEdge &edge)
    {
        const auto paragraphs = edge.ofPages.constFind(&page);
        if (paragraphs != edge.ofPages.constEnd()) {
            const XmlElement element = startBlock(m_xml, tag);
            for (const Paragraph *paragraph : *paragraphs) {
                writePageHeader(page, *paragraph);
            }
        }
    }

    void writePageHeader(const Page &page, const Paragraph &paragraph)
    {
        ParagraphContext context = contextOf(page, paragraph);
        context.element = QStringLiteral("div");
        writeHtmlPageHeader(m_xml, page, paragraph, context, m_document.pages.size() > 1 ? &m_numbers : nullptr);
    }

    void writeHead(const QString &title)
    {
        const XmlElement head(m_xml, QStringLiteral("head"));
        m_xml.writeEmptyElement(QStringLiteral("meta"));
        m_xml.writeAttribute(QStringLiteral("charset"), QStringLiteral("utf-8"));
        m_xml.writeEmptyElement(QStringLiteral("meta"));
        m_xml.writeAttribute(QStringLiteral("name"), QStringLiteral("viewport"));
        m_xml.writeAttribute(QStringLiteral("content"), QStringLiteral("width=device-width, initial-scale=1"));
        const model::FileFacts &facts = m_document.facts;
        m_xml.writeTextElement(QStringLiteral("title"), title);
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
        writeId(m_xml, HtmlAnchors::pageId(page.number));
        m_xml.writeCharacters(QString()); // prevents a self-closing element
        writePageBreak(page);
        writePageEdge(QStringLiteral("header"), page, m_headers);
        for (const model::Section &section : page.sections) {
            writeBlocks(page, section);
        }
        std::for_each(page.comments.begin(), page.comments.end(), [this](const auto &each) { writeComment(each); });
        writePageEdge(QStringLiteral("footer"), page, m_footers);
    }

    /// Marks where the page begins, with its number.
    void writePageBreak(const Page &page)
    {
        if (m_document.pages.size() > 1) {
            const XmlElement mark = startBlock(m_xml, QStringLiteral("span"), "number");
            m_xml.writeAttribute(QStringLiteral("role"), QStringLiteral("doc-pagebreak"));
            m_xml.writeAttribute(QStringLiteral("title"), xmlText(m_numbers.of(page)));
            m_xml.writeCharacters(QString());
        }
    }

    void writeComment(const model::Comment &comment)
    {
        const XmlElement element = startBlock(m_xml, QStringLiteral("div"), "comment");
        m_xml.writeAttribute(QStringLiteral("role"), QStringLiteral("note"));
        if (!comment.author.isEmpty()) {
            m_xml.writeTextElement(QStringLiteral("cite"), xmlText(comment.author));
            m_xml.writeCharacters(QStringLiteral(": "));
        }
        m_xml.writeCharacters(xmlText(comment.text));
    }

    void writeBlocks(const Page &page, const model::Section &section)
    {
        for (std::size_t i = 0; i < section.blocks.size(); ++i) {
            const Block &block = section.blocks[i];
            const Paragraph *paragraph = block.paragraph();
            if (!paragraph || !paragraph->listItem) {
                closeLists(0);
            }
            setBackground(paragraph ? paragraph->shading : std::nullopt);
            const Paragraph *caption =
                i + 1 < section.blocks.size() ? captionIn(block, section.blocks[i + 1]) : nullptr;
            if (caption) {
                writeCaptioned(page, section, i, *caption);
                ++i;
            } else if (const Table *table = block.table()) {
                writeHtmlTable(m_xml, *table, m_usual, isCentred(page, section, block), m_anchors);
            } else if (const Figure *figure = block.figure()) {
                writeFigure(page, *figure, isCentred(page, section, block));
            } else if (paragraph && paragraph->listItem) {
                writeListItem(page, *paragraph);
            } else if (paragraph) {
                writeHtmlParagraph(m_xml, *paragraph, contextOf(page, *paragraph));
            }
        }
        closeLists(0);
        setBackground({});
    }

    /// Returns the caption if the blocks are a figure and its caption, in either order; otherwise nullptr.
    static const Paragraph *captionIn(const Block &first, const Block &second)
    {
        const Figure *figure = first.figure() ? first.figure() : second.figure();
        const Paragraph *caption = first.paragraph() ? first.paragraph() : second.paragraph();
        return figure && caption && caption->captionOf == figure->id ? caption : nullptr;
    }

    void writeCaptioned(const Page &page, const model::Section &section, std::size_t first, const Paragraph &caption)
    {
        const XmlElement element = startBlock(m_xml, QStringLiteral("figure"));
        for (const std::size_t i : {first, first + 1}) {
            const Block &block = section.blocks[i];
            if (const Figure *figure = block.figure()) {
                writeFigure(page, *figure, isCentred(page, section, block), model::plainText(caption));
            } else {
                ParagraphContext context = contextOf(page, caption);
                context.element = QStringLiteral("figcaption");
                writeHtmlParagraph(m_xml, caption, context);
            }
        }
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

    ParagraphContext contextOf(const Page &page, const Paragraph &paragraph)
    {
        ParagraphContext context{m_usual, !m_background && model::losesBackground(page, paragraph), &m_anchors};
        if (const HtmlHeadings::Heading *heading = m_headings.find(paragraph)) {
            context.element = QStringLiteral("h%1").arg(heading->level);
            context.id = heading->id;
        } else if (paragraph.note) {
            context.id = HtmlAnchors::noteId(*paragraph.note);
        }
        return context;
    }

    /// Writes the labels as text if there is no picture.
    void writeFigure(const Page &page, const Figure &figure, bool centred, const QString &caption = {})
    {
        const model::EncodedPicture encoded = m_pictures.encode(figure, model::DrawingWords::InPicture);
        if (!encoded.bytes.isEmpty()) {
            const QString alt = !figure.alternative.isEmpty() ? figure.alternative
                                : page.scanned                ? QStringLiteral("Page %1").arg(page.number)
                                                              : caption;
            writeHtmlFigure(m_xml, encoded, figure, xmlText(alt), centred);
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
    HtmlAnchors m_anchors;
    HtmlHeadings m_headings;
    HtmlPageNumbers m_numbers;
    HtmlPageEdge m_headers;
    HtmlPageEdge m_footers;
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
