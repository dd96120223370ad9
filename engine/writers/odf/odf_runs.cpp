// SPDX-License-Identifier: GPL-3.0-or-later
#include "odf/odf_runs.h"

#include "base/xml_text.h"
#include "document/link.h"
#include "document/page_number.h"
#include "odf/odf_lists.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

constexpr QLatin1String shiftedSize("58%"); // of superscripts and subscripts in LibreOffice and Word

void flush(QXmlStreamWriter &xml, QString &pending)
{
    if (!pending.isEmpty()) {
        xml.writeCharacters(pending);
        pending.clear();
    }
}

QString spanStyle(StyleTable &styles, const model::Style &style, model::BaselineShift shift)
{
    if (shift == model::BaselineShift::None) {
        return styles.text(style);
    }
    styles.noteFont(style);
    Attributes attributes = styles.textLook(style);
    attributes.emplace_back(
        "style:text-position"_L1,
        shift == model::BaselineShift::Superscript ? "super "_L1 + shiftedSize : "sub "_L1 + shiftedSize);
    return styles.name(
        {"style:style"_L1, {{"style:family"_L1, u"text"_s}}, {{"style:text-properties"_L1, attributes}}});
}

} // namespace

QString bookmarkAddress(const QString &link)
{
    return model::linkAddress(link, "#page"_L1);
}

XmlElement beginLink(QXmlStreamWriter &xml, const QString &target)
{
    XmlElement link(xml, "text:a"_L1);
    xml.writeAttribute("xlink:type"_L1, "simple"_L1);
    xml.writeAttribute("xlink:href"_L1, target);
    return link;
}

void writeText(QXmlStreamWriter &xml, const QString &text)
{
    QString pending;
    bool afterSpace = true; // spaces at the beginning of a paragraph or span would be ignored
    const QString clean = xmlText(text);
    for (const QChar c : clean) {
        if (c == u'\n' || c == u'\t') {
            flush(xml, pending);
            xml.writeEmptyElement(c == u'\n' ? "text:line-break"_L1 : "text:tab"_L1);
            afterSpace = true;
        } else if (c == u' ' && afterSpace) {
            flush(xml, pending);
            xml.writeEmptyElement("text:s"_L1);
        } else {
            pending += c;
            afterSpace = c == u' ';
        }
    }
    flush(xml, pending);
}

namespace {

/// Writes the note with its mark. The note contains its text without the mark.
void writeNote(const Sink &sink, const QString &mark, const Note &note)
{
    QXmlStreamWriter &xml = sink.xml;
    model::Paragraph text = *note.text;
    std::vector<model::Word> &words = text.lines.front().words;
    words.erase(words.begin());
    const std::vector<model::Run> runs = model::runsOf(text);
    const model::Style textStyle = dominantStyle(runs);
    sink.styles.noteFont(textStyle);
    const XmlElement element(xml, "text:note"_L1);
    xml.writeAttribute("text:note-class"_L1, "footnote"_L1);
    {
        const XmlElement citation(xml, "text:note-citation"_L1);
        if (!note.counted) {
            xml.writeAttribute("text:label"_L1, xmlText(mark));
        }
        xml.writeCharacters(xmlText(mark));
    }
    const XmlElement body(xml, "text:note-body"_L1);
    const XmlElement paragraph(xml, "text:p"_L1);
    xml.writeAttribute(
        "text:style-name"_L1, sink.styles.name(
                                  {"style:style"_L1,
                                   {{"style:family"_L1, u"paragraph"_s}, {"style:parent-style-name"_L1, u"Footnote"_s}},
                                   {{"style:text-properties"_L1, sink.styles.textLook(textStyle)}}}));
    writeRuns({sink.xml, sink.styles}, runs, textStyle);
}

/// Writes the number of the page, or of pages, and the space after it.
void writePageField(QXmlStreamWriter &xml, const model::Run &run)
{
    const QString shown = run.text.trimmed();
    {
        const bool isNumber = run.field == model::PageField::Number;
        const XmlElement field(xml, isNumber ? "text:page-number"_L1 : "text:page-count"_L1);
        if (const std::optional<model::PageNumber> number = model::readPageNumber(shown)) {
            xml.writeAttribute("style:num-format"_L1, numberFormatName(number->format));
        }
        if (isNumber) {
            xml.writeAttribute("text:select-page"_L1, "current"_L1);
        }
        xml.writeCharacters(shown);
    }
    writeText(xml, run.text.mid(shown.size()));
}

} // namespace

void writeRuns(
    const Sink &sink, const std::vector<model::Run> &runs, const model::Style &paragraphStyle, bool withLinks)
{
    QXmlStreamWriter &xml = sink.xml;
    for (const model::Run &run : runs) {
        const auto note = run.note && sink.notes ? sink.notes->find(*run.note) : Notes::const_iterator();
        if (run.note && sink.notes && note != sink.notes->end()) {
            const QString mark = run.text.trimmed();
            writeNote(sink, mark, note->second);
            writeText(xml, run.text.mid(run.text.indexOf(mark) + mark.size()));
            continue;
        }
        const QString target = withLinks ? bookmarkAddress(run.link) : QString();
        const bool shifted = run.shift != model::BaselineShift::None;
        model::Style style = run.style;
        if (shifted) {
            style.size = paragraphStyle.size; // the shift reduces the size
        }
        const bool needsSpan = shifted || !(style == paragraphStyle);
        std::optional<XmlElement> link;
        if (!target.isEmpty()) {
            link.emplace(beginLink(xml, target));
        }
        std::optional<XmlElement> span;
        if (needsSpan) {
            span.emplace(xml, "text:span"_L1);
            xml.writeAttribute("text:style-name"_L1, spanStyle(sink.styles, style, run.shift));
        }
        if (sink.pageFields && run.field != model::PageField::None) {
            writePageField(xml, run);
        } else {
            writeText(xml, run.text);
        }
    }
}

} // namespace quorra::office
