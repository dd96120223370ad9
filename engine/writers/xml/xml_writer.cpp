// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml/xml_writer.h"

#include "base/xml_element.h"
#include "base/xml_text.h"

#include <QHash>
#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>

namespace quorra {

namespace {

using model::Paragraph;
using model::Role;
using model::Style;

QString roleName(const Paragraph &paragraph)
{
    switch (paragraph.role) {
    case Role::Heading:
        return QStringLiteral("heading%1").arg(paragraph.headingLevel);
    case Role::ListItem:
        return QStringLiteral("listitem");
    case Role::Caption:
        return QStringLiteral("caption");
    case Role::Footnote:
        return QStringLiteral("footnote");
    case Role::PageHeader:
        return QStringLiteral("runninghead");
    case Role::Body:
        break;
    }
    return QStringLiteral("body");
}

/// Empty for left.
QString alignmentName(model::Alignment alignment)
{
    switch (alignment) {
    case model::Alignment::Centre:
        return QStringLiteral("centre");
    case model::Alignment::Right:
        return QStringLiteral("right");
    case model::Alignment::Justify:
        return QStringLiteral("justify");
    case model::Alignment::Left:
        break;
    }
    return {};
}

class XmlWriter
{
public:
    XmlWriter(QIODevice &out, const model::Document &document, model::PictureSource *pictures)
        : m_xml(&out)
        , m_document(document)
        , m_pictures(pictures)
    {
        m_xml.setAutoFormatting(true);
        m_xml.setAutoFormattingIndent(1);
    }

    void write()
    {
        m_xml.writeStartDocument();
        {
            const XmlElement document = start("document");
            attribute("version", QStringLiteral("1"));
            attribute("unit", QStringLiteral("pt"));
            writeFacts();
            for (const model::Page &page : m_document.pages) {
                writePage(page);
            }
        }
        m_xml.writeEndDocument();
    }

private:
    void writeFacts()
    {
        const model::FileFacts &facts = m_document.facts;
        text("title", facts.title);
        text("author", facts.author);
        text("subject", facts.subject);
        text("keywords", facts.keywords);
        text("language", facts.language);
        if (facts.outline.empty()) {
            return;
        }
        const XmlElement outline = start("outline");
        for (const model::OutlineEntry &entry : facts.outline) {
            m_xml.writeEmptyElement(QStringLiteral("entry"));
            number("level", entry.level + 1);
            text("title", entry.title);
            if (entry.page > 0) {
                number("page", entry.page);
            }
            writeTop(entry);
        }
    }

    // The vertical position of the entry's target, if its page is part of the document.
    void writeTop(const model::OutlineEntry &entry)
    {
        const auto page = std::find_if(m_document.pages.begin(), m_document.pages.end(), [&entry](const auto &each) {
            return each.number == entry.page;
        });
        if (page != m_document.pages.end() && entry.top > 0) {
            number("top", entry.top * page->height);
        }
    }

    void writePage(const model::Page &page)
    {
        const XmlElement element = start("page");
        number("number", page.number);
        text("label", page.label);
        number("width", page.width);
        number("height", page.height);
        flag("scanned", page.scanned);
        flag("recognised", page.recognised);
        for (const Paragraph &each : page.header) {
            writeParagraph(each, "header");
        }
        for (const Paragraph &each : page.footer) {
            writeParagraph(each, "footer");
        }
        for (const model::Section &section : page.sections) {
            const XmlElement part = start("section");
            number("columns", static_cast<double>(section.columns.size()));
            for (const model::Block &block : section.blocks) {
                writeBlock(block);
            }
        }
        for (const model::Rule &rule : page.rules) {
            m_xml.writeEmptyElement(QStringLiteral("rule"));
            box({rule.x1, rule.y1, rule.x2, rule.y2});
            number("thickness", rule.width);
        }
        for (const model::Comment &comment : page.comments) {
            m_xml.writeEmptyElement(QStringLiteral("comment"));
            box(comment.box);
            text("author", comment.author);
            text("text", comment.text);
        }
    }

    void writeBlock(const model::Block &block)
    {
        if (const Paragraph *paragraph = block.paragraph()) {
            writeParagraph(*paragraph);
        } else if (const model::Table *table = block.table()) {
            writeTable(*table);
        } else if (const model::Figure *figure = block.figure()) {
            writePicture(*figure);
            for (const Paragraph &label : figure->labels) {
                writeParagraph(label);
            }
        }
    }

    void writePicture(const model::Figure &figure)
    {
        m_xml.writeEmptyElement(QStringLiteral("picture"));
        box(figure.box);
        text("alternative", figure.alternative);
        identity("id", figure.id);
        const model::EncodedPicture picture =
            m_pictures ? m_pictures->encode(figure, model::DrawingWords::InPicture) : model::EncodedPicture{};
        if (!picture.bytes.isEmpty()) {
            attribute("source", model::dataAddress(picture));
        }
    }

    /// The place is "header", "footer", or null.
    void writeParagraph(const Paragraph &paragraph, const char *place = nullptr)
    {
        const XmlElement element = start("block");
        box(paragraph.box);
        attribute("role", roleName(paragraph));
        flag("title", paragraph.title);
        if (place) {
            attribute("place", QLatin1String(place));
        }
        text("alignment", alignmentName(paragraph.alignment));
        if (paragraph.rightToLeft) {
            attribute("direction", QStringLiteral("rtl"));
        }
        text("language", paragraph.language);
        if (paragraph.continuesPrevious) {
            attribute("continues", QStringLiteral("yes"));
        }
        flag("preformatted", paragraph.preformatted);
        if (paragraph.shading) {
            attribute("shading", colourName(*paragraph.shading));
        }
        if (paragraph.listItem) {
            number("level", paragraph.listItem->level + 1);
            text("mark", paragraph.listItem->mark);
            flag("ordered", paragraph.listItem->ordered);
        }
        if (paragraph.contentsEntry) {
            number("contents", paragraph.contentsEntry->level + 1);
            text("page", paragraph.contentsEntry->page);
            text("target", paragraph.contentsEntry->link);
        }
        if (paragraph.note) {
            identity("note", *paragraph.note);
        }
        if (paragraph.captionOf) {
            identity("captionof", *paragraph.captionOf);
        }
        for (std::size_t i = 0; i < paragraph.lines.size(); ++i) {
            const model::Line &line = paragraph.lines[i];
            const XmlElement part = start("line");
            box(line.box);
            number("baseline", line.baseline);
            if (line.rotation != 0) {
                number("rotation", line.rotation);
            }
            writeWords(paragraph, i);
        }
    }

    /// Writes a word that was drawn in parts as one element. A word hyphenated at a line end is written with its whole
    /// text on the first line; its second part is an element without text.
    void writeWords(const Paragraph &paragraph, std::size_t index)
    {
        const std::vector<model::Word> &words = paragraph.lines[index].words;
        const std::vector<model::Word> none;
        const auto &before = index > 0 ? paragraph.lines[index - 1].words : none;
        const auto &after = index + 1 < paragraph.lines.size() ? paragraph.lines[index + 1].words : none;
        for (std::size_t i = 0; i < words.size(); ++i) {
            model::Word word = words[i];
            const bool rest = i == 0 && !before.empty() && before.back().separator == model::Separator::Hyphen;
            while (i + 1 < words.size() && !words[i].spaceAfter()) {
                word.text += words[++i].text;
                word.box = united(word.box, words[i].box);
                if (words[i].confidence) {
                    word.confidence = std::min(word.confidence.value_or(1), *words[i].confidence);
                }
            }
            if (i + 1 == words.size() && !after.empty() && words[i].separator == model::Separator::Hyphen) {
                word.text.chop(1);
                for (std::size_t k = 0; k < after.size() && (k == 0 || !after[k - 1].spaceAfter()); ++k) {
                    word.text += after[k].text;
                }
            }
            if (rest) {
                word.text.clear();
            }
            writeWord(word);
        }
    }

    void writeWord(const model::Word &word)
    {
        const XmlElement element = start("word");
        box(word.box);
        const Style &style = *word.style;
        attribute("font", xmlText(style.family));
        number("size", style.size);
        flag("bold", style.bold);
        flag("italic", style.italic);
        flag("underlined", style.underlined);
        flag("struckThrough", style.struckThrough);
        if (style.colour != black) {
            attribute("colour", colourName(style.colour));
        }
        if (word.shift != model::BaselineShift::None) {
            attribute(
                "shift", word.shift == model::BaselineShift::Superscript ? QStringLiteral("superscript")
                                                                         : QStringLiteral("subscript"));
        }
        if (!word.link.isEmpty()) {
            attribute("link", xmlText(word.link));
        }
        if (word.note) {
            identity("note", *word.note);
        }
        if (word.text.isEmpty()) {
            attribute("part", QStringLiteral("rest"));
        }
        if (word.confidence) {
            number("confidence", *word.confidence);
        }
        m_xml.writeCharacters(xmlText(word.text));
    }

    void writeTable(const model::Table &table)
    {
        const XmlElement element = start("table");
        box(table.box);
        number("rows", table.rows());
        number("columns", table.columns());
        if (table.rotation != 0) {
            number("rotation", table.rotation);
        }
        flag("continues", table.continuesPrevious);
        for (const model::Cell &cell : table.cells) {
            const XmlElement part = start("cell");
            number("row", cell.row);
            number("column", cell.column);
            if (cell.rowSpan > 1) {
                number("rowspan", cell.rowSpan);
            }
            if (cell.columnSpan > 1) {
                number("columnspan", cell.columnSpan);
            }
            box(cell.box);
            flag("header", cell.row < table.headerRows);
            if (cell.background) {
                attribute("background", colourName(*cell.background));
            }
            for (const Paragraph &paragraph : cell.paragraphs) {
                writeParagraph(paragraph);
            }
        }
    }

    [[nodiscard]] XmlElement start(const char *name) { return {m_xml, QLatin1String(name)}; }
    void attribute(const char *name, const QString &value) { m_xml.writeAttribute(QLatin1String(name), value); }
    void text(const char *name, const QString &value)
    {
        if (!value.isEmpty()) {
            attribute(name, xmlText(value));
        }
    }
    void number(const char *name, double value)
    {
        attribute(name, QString::number(std::round(value * 100) / 100, 'g', 10));
    }
    /// Identities count from 0, their numbers from 1.
    template <typename Id>
    void identity(const char *name, Id id)
    {
        attribute(name, QString::number(static_cast<std::size_t>(id) + 1));
    }
    void flag(const char *name, bool value)
    {
        if (value) {
            attribute(name, QStringLiteral("yes"));
        }
    }
    void box(const Box &b)
    {
        number("left", b.left);
        number("top", b.top);
        number("right", b.right);
        number("bottom", b.bottom);
    }

    QXmlStreamWriter m_xml;
    const model::Document &m_document;
    model::PictureSource *m_pictures;
};

} // namespace

void writeXml(QIODevice &out, const model::Document &document, model::PictureSource *pictures)
{
    XmlWriter(out, document, pictures).write();
}

} // namespace quorra
