// SPDX-License-Identifier: GPL-3.0-or-later
#include "odf/odf_runs.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

model::Style withoutLink(model::Style style)
{
    style.link.clear();
    return style;
}

void flush(QXmlStreamWriter &xml, QString &pending)
{
    if (!pending.isEmpty()) {
        xml.writeCharacters(pending);
        pending.clear();
    }
}

QString spanStyle(StyleTable &styles, const model::Style &look, Rise rise)
{
    if (rise == Rise::None) {
        return styles.text(look);
    }
    styles.noteFont(look);
    Attributes attributes = textAttributes(look);
    attributes.emplace_back("style:text-position"_L1, rise == Rise::Above ? u"super 58%"_s : u"sub 58%"_s);
    return styles.name(
        {"style:style"_L1, {{"style:family"_L1, u"text"_s}}, {{"style:text-properties"_L1, attributes}}});
}

} // namespace

model::Style mainStyle(const std::vector<model::Run> &runs)
{
    std::vector<std::pair<model::Style, qsizetype>> looks;
    for (const model::Run &run : runs) {
        const model::Style style = withoutLink(run.style);
        const auto known =
            std::find_if(looks.begin(), looks.end(), [&](const auto &each) { return each.first == style; });
        if (known == looks.end()) {
            looks.emplace_back(style, run.text.size());
        } else {
            known->second += run.text.size();
        }
    }
    const auto most =
        std::max_element(looks.begin(), looks.end(), [](const auto &a, const auto &b) { return a.second < b.second; });
    return most == looks.end() ? model::Style{} : most->first;
}

double largestSize(const std::vector<model::Run> &runs)
{
    double largest = 0;
    for (const model::Run &run : runs) {
        largest = std::max(largest, run.style.size);
    }
    return largest > 0 ? largest : 10;
}

QString linkTarget(const QString &link)
{
    constexpr QLatin1String Page("#page=");
    if (link.startsWith(Page)) {
        bool isNumber = false;
        const int page = QStringView(link).mid(Page.size()).toInt(&isNumber);
        return isNumber && page > 0 ? u"#page%1"_s.arg(page) : QString();
    }
    static constexpr std::array<QLatin1String, 4> Schemes = {
        QLatin1String("http://"), QLatin1String("https://"), QLatin1String("ftp://"), QLatin1String("mailto:")};
    const bool safe = std::any_of(Schemes.begin(), Schemes.end(), [&](QLatin1String scheme) {
        return link.startsWith(scheme, Qt::CaseInsensitive);
    });
    return safe ? xmlText(link) : QString();
}

void writeText(QXmlStreamWriter &xml, const QString &text)
{
    QString pending;
    bool afterBlank = true; // blanks at the start of a paragraph or span would be dropped
    const QString clean = xmlText(text);
    for (const QChar c : clean) {
        if (c == u'\n' || c == u'\t') {
            flush(xml, pending);
            xml.writeEmptyElement(c == u'\n' ? "text:line-break"_L1 : "text:tab"_L1);
            afterBlank = true;
        } else if (c == u' ' && afterBlank) {
            flush(xml, pending);
            xml.writeEmptyElement("text:s"_L1);
        } else {
            pending += c;
            afterBlank = c == u' ';
        }
    }
    flush(xml, pending);
}

std::vector<Rise> risesOf(const model::Paragraph &paragraph)
{
    constexpr double SmallType = 0.85; // raised signs are set smaller than the text
    constexpr double LeastRise = 0.1;  // of the text's size
    const double size = mainStyle(paragraph.runs).size;
    std::vector<Rise> rises(paragraph.runs.size(), Rise::None);
    for (std::size_t i = 0; i < rises.size(); ++i) {
        const model::Run &run = paragraph.runs[i];
        if (run.style.size > SmallType * size) {
            continue;
        }
        for (const model::Line &line : paragraph.lines) {
            for (const model::Word &word : line.words) {
                const double rise = line.baseline - word.baseline;
                if (word.style == run.style && std::abs(rise) > LeastRise * size && run.text.contains(word.text)) {
                    rises[i] = rise > 0 ? Rise::Above : Rise::Below;
                }
            }
        }
    }
    return rises;
}

void writeRuns(
    const Sink &sink, const std::vector<model::Run> &runs, const model::Style &paragraphStyle, bool withLinks,
    const std::vector<Rise> &rises)
{
    QXmlStreamWriter &xml = sink.xml;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const QString target = withLinks ? linkTarget(runs[i].style.link) : QString();
        const Rise rise = i < rises.size() ? rises[i] : Rise::None;
        model::Style look = withoutLink(runs[i].style);
        if (rise != Rise::None) {
            look.size = paragraphStyle.size; // made small by being raised
        }
        const bool needsSpan = rise != Rise::None || !(look == paragraphStyle);
        if (!target.isEmpty()) {
            xml.writeStartElement("text:a"_L1);
            xml.writeAttribute("xlink:type"_L1, "simple"_L1);
            xml.writeAttribute("xlink:href"_L1, target);
        }
        if (needsSpan) {
            xml.writeStartElement("text:span"_L1);
            xml.writeAttribute("text:style-name"_L1, spanStyle(sink.styles, look, rise));
        }
        writeText(xml, runs[i].text);
        if (needsSpan) {
            xml.writeEndElement();
        }
        if (!target.isEmpty()) {
            xml.writeEndElement();
        }
    }
}

} // namespace quorra::office
