// SPDX-License-Identifier: GPL-3.0-or-later
#include "html_text.h"

#include "base/xml_text.h"
#include "document/faint_text.h"
#include "html_style.h"

#include <QXmlStreamWriter>

#include <optional>
#include <utility>

namespace quorra {

namespace {

using model::BaselineShift;
using model::Run;

/// Removes the spaces at the end of the text and returns them.
QString takeTrailingSpaces(QString &text)
{
    auto end = text.size();
    while (end > 0 && text.at(end - 1).isSpace()) {
        --end;
    }
    QString spaces = text.mid(end);
    text.truncate(end);
    return spaces;
}

XmlElement openElement(QXmlStreamWriter &xml, const QString &tag, const char *htmlClass, const QString &after)
{
    XmlElement element(xml, tag, after);
    if (htmlClass) {
        xml.writeAttribute(QStringLiteral("class"), QLatin1String(htmlClass));
    }
    return element;
}

class InlineWriter
{
public:
    InlineWriter(QXmlStreamWriter &xml, const TextContext &context) : m_xml(xml), m_context(context) {}

    void write(const std::vector<Run> &runs)
    {
        for (const Run &run : runs) {
            QString text = run.text;
            QString spaces = takeTrailingSpaces(text);
            if (text.isEmpty()) { // a link needs text
                m_spaces += spaces;
                continue;
            }
            const bool isNote = run.note && m_context.anchors && m_context.anchors->hasNote(*run.note);
            const QString link = linkOf(run);
            if (link != m_link || isNote) {
                closeLink();
                writeText(m_spaces);
                openLink(link);
                if (isNote) {
                    writeReference(*run.note);
                }
            } else {
                writeText(m_spaces);
            }
            writeRun(run, text);
            m_spaces = std::move(spaces);
        }
        closeLink();
    }

private:
    QString linkOf(const Run &run) const
    {
        if (!m_context.anchors) {
            return {};
        }
        return run.note && m_context.anchors->hasNote(*run.note) ? QLatin1Char('#') + HtmlAnchors::noteId(*run.note)
                                                                 : m_context.anchors->address(run.link);
    }

    /// Makes the open link a reference to a note.
    void writeReference(model::NoteId note)
    {
        m_xml.writeAttribute(QStringLiteral("role"), QStringLiteral("doc-noteref"));
        const QString id = m_context.anchors->addReference(note);
        if (!id.isEmpty()) {
            m_xml.writeAttribute(QStringLiteral("id"), id);
        }
    }

    void openLink(const QString &link)
    {
        m_link = link;
        if (!link.isEmpty()) {
            m_linkElement.emplace(startElement(m_xml, QStringLiteral("a")));
            m_xml.writeAttribute(QStringLiteral("href"), link);
        }
    }

    void closeLink()
    {
        m_linkElement.reset();
        m_link.clear();
    }

    void writeRun(const Run &run, const QString &text)
    {
        model::Style style = run.style;
        if (m_context.lostBackground && model::isFaint(style.colour)) {
            style.colour = black;
        }
        model::Style around = m_context.style;
        if (!m_link.isEmpty()) { // browsers give links a colour of their own
            around.colour = black;
        }
        std::optional<XmlElement> outer;
        if (run.shift != BaselineShift::None) { // the element reduces the size
            outer.emplace(
                m_xml, run.shift == BaselineShift::Superscript ? QStringLiteral("sup") : QStringLiteral("sub"));
            style.size = m_context.style.size;
        }
        const QString declarations = runStyle(style, around, m_context.heading);
        if (!declarations.isEmpty()) {
            if (!outer) {
                outer.emplace(m_xml, QStringLiteral("span"));
            }
            m_xml.writeAttribute(QStringLiteral("style"), declarations);
        }
        std::optional<XmlElement> bold;
        if (style.bold && !(m_context.heading && m_context.style.bold)) {
            bold.emplace(m_xml, QStringLiteral("b"));
        }
        std::optional<XmlElement> italic;
        if (style.italic) {
            italic.emplace(m_xml, QStringLiteral("i"));
        }
        std::optional<XmlElement> underlined;
        if (style.underlined && m_link.isEmpty()) { // browsers underline links
            underlined.emplace(m_xml, QStringLiteral("u"));
        }
        std::optional<XmlElement> struckThrough;
        if (style.struckThrough) {
            struckThrough.emplace(m_xml, QStringLiteral("s"));
        }
        writeText(text);
    }

    void writeText(const QString &text)
    {
        if (m_context.preformatted || !text.contains(QLatin1Char('\n'))) {
            m_xml.writeCharacters(xmlText(text));
            return;
        }
        const auto lines = text.split(QLatin1Char('\n'));
        for (qsizetype i = 0; i < lines.size(); ++i) {
            if (i > 0) {
                m_xml.writeEmptyElement(QStringLiteral("br"));
            }
            m_xml.writeCharacters(xmlText(lines.at(i)));
        }
    }

    QXmlStreamWriter &m_xml;
    const TextContext &m_context;
    QString m_link;
    std::optional<XmlElement> m_linkElement;
    QString m_spaces;
};

} // namespace

XmlElement startElement(QXmlStreamWriter &xml, const QString &tag, const char *htmlClass)
{
    return openElement(xml, tag, htmlClass, {});
}

XmlElement startBlock(QXmlStreamWriter &xml, const QString &tag, const char *htmlClass)
{
    return openElement(xml, tag, htmlClass, QStringLiteral("\n"));
}

void writeInline(QXmlStreamWriter &xml, const std::vector<Run> &runs, const TextContext &context)
{
    InlineWriter(xml, context).write(runs);
}

void writeStyle(QXmlStreamWriter &xml, const QString &style)
{
    if (!style.isEmpty()) {
        xml.writeAttribute(QStringLiteral("style"), style);
    }
}

void writeDirection(QXmlStreamWriter &xml, bool rightToLeft)
{
    if (rightToLeft) {
        xml.writeAttribute(QStringLiteral("dir"), QStringLiteral("rtl"));
    }
}

void writeLanguage(QXmlStreamWriter &xml, const QString &tag)
{
    if (!tag.isEmpty()) {
        xml.writeAttribute(QStringLiteral("lang"), tag);
    }
}

void writeId(QXmlStreamWriter &xml, const QString &id)
{
    if (!id.isEmpty()) {
        xml.writeAttribute(QStringLiteral("id"), id);
    }
}

} // namespace quorra
