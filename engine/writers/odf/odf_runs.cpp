// SPDX-License-Identifier: GPL-3.0-or-later
#include "odf/odf_runs.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

constexpr QLatin1String shiftedSize("58%"); // of superscripts and subscripts: what LibreOffice and Word use

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
    Attributes attributes = textAttributes(style);
    attributes.emplace_back(
        "style:text-position"_L1,
        shift == model::BaselineShift::Superscript ? "super "_L1 + shiftedSize : "sub "_L1 + shiftedSize);
    return styles.name(
        {"style:style"_L1, {{"style:family"_L1, u"text"_s}}, {{"style:text-properties"_L1, attributes}}});
}

} // namespace

model::Style mainStyle(const std::vector<model::Run> &runs)
{
    std::vector<std::pair<model::Style, qsizetype>> lengths; // of the text in each style
    for (const model::Run &run : runs) {
        const model::Style &style = run.style;
        const auto known =
            std::find_if(lengths.begin(), lengths.end(), [&](const auto &each) { return each.first == style; });
        if (known == lengths.end()) {
            lengths.emplace_back(style, run.text.size());
        } else {
            known->second += run.text.size();
        }
    }
    const auto most = std::max_element(
        lengths.begin(), lengths.end(), [](const auto &a, const auto &b) { return a.second < b.second; });
    return most == lengths.end() ? model::Style{} : most->first;
}

model::Style mainStyle(const model::Paragraph &paragraph)
{
    return mainStyle(model::runsOf(paragraph));
}

double largestSize(const std::vector<model::Run> &runs)
{
    double largest = 0;
    for (const model::Run &run : runs) {
        largest = std::max(largest, run.style.size);
    }
    return largest > 0 ? largest : defaultFontSize;
}

double largestSize(const model::Paragraph &paragraph)
{
    return largestSize(model::runsOf(paragraph));
}

QString linkTarget(const QString &link)
{
    constexpr QLatin1String pagePrefix("#page=");
    if (link.startsWith(pagePrefix)) {
        bool isNumber = false;
        const int page = QStringView(link).mid(pagePrefix.size()).toInt(&isNumber);
        return isNumber && page > 0 ? u"#page%1"_s.arg(page) : QString();
    }
    static constexpr std::array<QLatin1String, 4> schemes = {
        QLatin1String("http://"), QLatin1String("https://"), QLatin1String("ftp://"), QLatin1String("mailto:")};
    const bool safe = std::any_of(schemes.begin(), schemes.end(), [&](QLatin1String scheme) {
        return link.startsWith(scheme, Qt::CaseInsensitive);
    });
    return safe ? xmlText(link) : QString();
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
    bool afterSpace = true; // spaces at the start of a paragraph or span would be dropped
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

void writeRuns(
    const Sink &sink, const std::vector<model::Run> &runs, const model::Style &paragraphStyle, bool withLinks)
{
    QXmlStreamWriter &xml = sink.xml;
    for (const model::Run &run : runs) {
        const QString target = withLinks ? linkTarget(run.link) : QString();
        const bool shifted = run.shift != model::BaselineShift::None;
        model::Style style = run.style;
        if (shifted) {
            style.size = paragraphStyle.size; // the shift makes it small
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
        writeText(xml, run.text);
    }
}

} // namespace quorra::office
