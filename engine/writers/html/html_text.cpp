// SPDX-License-Identifier: GPL-3.0-or-later
#include "html_text.h"

#include "base/xml_text.h"
#include "document/link.h"
#include "html_style.h"

#include <QXmlStreamWriter>

#include <optional>
#include <utility>

namespace quorra {

namespace {

using model::BaselineShift;
using model::Run;

constexpr QLatin1String pagePrefix("#page-"); // of the id of a page's element

// Cuts the blanks at the end off the text and returns them.
QString takeBlanks(QString &text)
{
    auto end = text.size();
    while (end > 0 && text.at(end - 1).isSpace()) {
        --end;
    }
    QString blanks = text.mid(end);
    text.truncate(end);
    return blanks;
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
    InlineWriter(QXmlStreamWriter &xml, const TextGround &ground) : m_xml(xml), m_ground(ground) {}

    void write(const std::vector<Run> &runs)
    {
        for (const Run &run : runs) {
            QString text = run.text;
            QString blanks = takeBlanks(text);
            if (text.isEmpty()) { // no link around nothing
                m_blanks += blanks;
                continue;
            }
            const QString link = model::linkAddress(run.link, pagePrefix);
            if (link != m_link) {
                closeLink();
                writeText(m_blanks);
                openLink(link);
            } else {
                writeText(m_blanks);
            }
            writeRun(run, text);
            m_blanks = std::move(blanks);
        }
        closeLink();
    }

private:
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
        if (m_ground.lostBackground && isFaint(style.colour)) {
            style.colour = black;
        }
        model::Style around = m_ground.look;
        if (!m_link.isEmpty()) { // a link takes no colour from around it
            around.colour = black;
        }
        std::optional<XmlElement> outer;
        if (run.shift != BaselineShift::None) { // the element makes it small
            outer.emplace(
                m_xml, run.shift == BaselineShift::Superscript ? QStringLiteral("sup") : QStringLiteral("sub"));
            style.size = m_ground.look.size;
        }
        const QString declarations = runStyle(style, around, m_ground.heading);
        if (!declarations.isEmpty()) {
            if (!outer) {
                outer.emplace(m_xml, QStringLiteral("span"));
            }
            m_xml.writeAttribute(QStringLiteral("style"), declarations);
        }
        std::optional<XmlElement> bold;
        if (style.bold && !(m_ground.heading && m_ground.look.bold)) {
            bold.emplace(m_xml, QStringLiteral("b"));
        }
        std::optional<XmlElement> italic;
        if (style.italic) {
            italic.emplace(m_xml, QStringLiteral("i"));
        }
        writeText(text);
    }

    void writeText(const QString &text)
    {
        if (m_ground.preformatted || !text.contains(QLatin1Char('\n'))) {
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
    const TextGround &m_ground;
    QString m_link;
    std::optional<XmlElement> m_linkElement;
    QString m_blanks;
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

void writeInline(QXmlStreamWriter &xml, const std::vector<Run> &runs, const TextGround &ground)
{
    InlineWriter(xml, ground).write(runs);
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

} // namespace quorra
