// SPDX-License-Identifier: GPL-3.0-or-later
#include "html_paragraph.h"

#include "base/xml_text.h"
#include "document/faint_text.h"
#include "document/text.h"
#include "html_leaders.h"
#include "html_style.h"
#include "html_text.h"

#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>
#include <optional>

namespace quorra {

namespace {

using model::Page;
using model::Paragraph;
using model::Role;
using model::Run;
using Lines = std::vector<std::vector<Run>>;

struct Thresholds
{
    double maxOffCentre = 0.1; ///< share of the page's width; by which the distances of a centred header from the
                               ///< margins differ
};
constexpr Thresholds thresholds;

bool isHeading(const Paragraph &paragraph)
{
    return paragraph.role == Role::Heading;
}

/// Returns the texts of a page header without these page numbers; null leaves out nothing.
Lines headerParts(const Paragraph &header, const HtmlPageNumbers *leftOut)
{
    Lines parts;
    for (const model::Line &part : pageHeaderParts(header)) {
        if (!leftOut || !leftOut->isPageNumber(model::plainText(part))) {
            parts.push_back(model::runsOf(part));
        }
    }
    return parts;
}

/// Returns the alignment of a page header by its distances from the margins; nothing for left.
QString headerAlignment(const Page &page, const Box &header)
{
    const double left = header.left - page.content.left;
    const double right = page.content.right - header.right;
    const double tolerance = thresholds.maxOffCentre * page.width;
    if (page.content.isEmpty() || std::max(left, right) < tolerance) {
        return {};
    }
    if (std::abs(left - right) < tolerance) {
        return QStringLiteral("text-align:center");
    }
    return left > right ? QStringLiteral("text-align:right") : QString();
}

void writePreformatted(QXmlStreamWriter &xml, const Lines &lines, TextContext context)
{
    context.preformatted = true;
    std::vector<Run> all;
    for (const std::vector<Run> &line : lines) {
        if (!all.empty()) {
            all.back().text += QLatin1Char('\n');
        }
        all.insert(all.end(), line.begin(), line.end());
    }
    writeInline(xml, all, context);
}

void writeSpan(QXmlStreamWriter &xml, const std::vector<Run> &runs, const TextContext &context)
{
    const XmlElement element(xml, QStringLiteral("span"));
    xml.writeCharacters(QString()); // prevents a self-closing element
    writeInline(xml, runs, context);
}

// The replacement of a tab: dots, or a gap.
void writeTab(QXmlStreamWriter &xml, bool leader, bool stretches)
{
    const XmlElement gap = startElement(xml, QStringLiteral("span"), leader ? "dots" : stretches ? "gap" : "tab");
    if (leader) {
        xml.writeAttribute(QStringLiteral("aria-hidden"), QStringLiteral("true")); // nothing to be read aloud
    }
    xml.writeCharacters(leader ? QStringLiteral(" ..... ") : QStringLiteral(" "));
}

void writeTabbed(
    QXmlStreamWriter &xml, const Paragraph &paragraph, const std::vector<Run> &runs, const TextContext &context)
{
    const Lines parts = tabbedParts(runs);
    const bool stretches = endsAtRightTab(paragraph);
    std::optional<XmlElement> entry;
    if (stretches) {
        entry.emplace(startElement(xml, QStringLiteral("span"), "entry"));
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) {
            writeTab(xml, i <= paragraph.tabStops.size() && paragraph.tabStops[i - 1].leader, stretches);
        }
        writeSpan(xml, parts[i], context);
    }
}

/// Writes the first word of a note as a link back to the reference, and the rest of its text.
void writeNote(QXmlStreamWriter &xml, std::vector<Run> runs, model::NoteId note, const TextContext &context)
{
    const auto end = runs.front().text.indexOf(QLatin1Char(' '));
    std::vector<Run> mark{runs.front()};
    mark.front().link.clear();
    mark.front().text = mark.front().text.left(end);
    {
        const XmlElement link(xml, QStringLiteral("a"));
        xml.writeAttribute(QStringLiteral("href"), QLatin1Char('#') + HtmlAnchors::referenceId(note));
        xml.writeAttribute(QStringLiteral("role"), QStringLiteral("doc-backlink"));
        writeInline(xml, mark, context);
    }
    runs.front().text.remove(0, mark.front().text.size());
    xml.writeCharacters(runs.front().text.startsWith(QLatin1Char(' ')) ? QStringLiteral(" ") : QString());
    runs.front().text.remove(0, runs.front().text.startsWith(QLatin1Char(' ')) ? 1 : 0);
    writeInline(xml, runs, context);
}

// The first letter of a paragraph beside its first lines, and the rest of its text.
void writeDropCap(QXmlStreamWriter &xml, std::vector<Run> runs, const TextContext &context)
{
    {
        const XmlElement letter = startElement(xml, QStringLiteral("span"), "initial");
        writeInline(xml, {runs.front()}, context);
    }
    runs.erase(runs.begin());
    writeInline(xml, runs, context);
}

/// Returns the style of the paragraph's element and the context of its text.
TextContext textContext(const Paragraph &paragraph, const std::vector<Run> &runs, const ParagraphContext &context)
{
    TextContext text{
        elementStyle(runs, context.usual, isHeading(paragraph)), isHeading(paragraph), false, context.lostBackground,
        context.anchors};
    if (context.lostBackground && model::isFaint(text.style.colour)) {
        text.style.colour = black;
    }
    return text;
}

} // namespace

void writeHtmlParagraph(QXmlStreamWriter &xml, const Paragraph &paragraph, const ParagraphContext &context)
{
    const Lines preformatted = model::preformattedLines(paragraph);
    const std::vector<Run> runs = model::runsOf(paragraph);
    const bool tabbed = preformatted.empty() && !paragraph.tabStops.empty();
    const TextContext text = textContext(paragraph, runs, context);
    Paragraph place = paragraph;
    if (tabbed || !preformatted.empty()) { // every line is a paragraph of its own
        place.alignment = model::Alignment::Left;
        place.firstLineIndent = 0;
    }
    const XmlElement element = startBlock(
        xml, preformatted.empty() ? context.element : QStringLiteral("pre"),
        paragraph.role == Role::Caption ? "caption" : nullptr);
    writeId(xml, context.id);
    const bool isNote = paragraph.note && context.anchors && context.anchors->hasReference(*paragraph.note);
    if (paragraph.note) {
        xml.writeAttribute(QStringLiteral("role"), QStringLiteral("doc-footnote"));
    }
    writeStyle(
        xml,
        joinedStyle(
            {paragraphStyle(place, text.style, context.usual), borderStyle("border-top", paragraph.borderAbove.line),
             borderStyle("border-bottom", paragraph.borderBelow.line)}));
    writeDirection(xml, paragraph.rightToLeft);
    writeLanguage(xml, paragraph.language);
    xml.writeCharacters(QString());
    if (!preformatted.empty()) {
        writePreformatted(xml, preformatted, text);
    } else if (isNote && !runs.empty()) {
        writeNote(xml, runs, *paragraph.note, text);
    } else if (tabbed) {
        writeTabbed(xml, paragraph, runs, text);
    } else if (paragraph.dropCapLines > 0 && runs.size() > 1) {
        writeDropCap(xml, runs, text);
    } else {
        writeInline(xml, runs, text);
    }
}

bool showsMark(const model::ListItem &item)
{
    // A list that goes on after other text keeps its number, a box its tick.
    const bool isCheckBox = item.mark == u"\u2610" || item.mark == u"\u2611" || item.mark == u"\u2612";
    return item.ordered || isCheckBox;
}

void writeHtmlListText(QXmlStreamWriter &xml, const Paragraph &item, const ParagraphContext &context)
{
    const std::vector<Run> runs = model::runsOf(item);
    const TextContext text = textContext(item, runs, context);
    writeStyle(xml, runStyle(text.style, context.usual, false));
    writeDirection(xml, item.rightToLeft);
    writeLanguage(xml, item.language);
    xml.writeCharacters(QString());
    if (showsMark(*item.listItem)) {
        {
            const XmlElement mark = startElement(xml, QStringLiteral("span"), "mark");
            xml.writeCharacters(xmlText(item.listItem->mark));
        }
        xml.writeCharacters(QStringLiteral(" "));
    }
    writeInline(xml, runs, text);
}

void writeHtmlPageHeader(
    QXmlStreamWriter &xml, const Page &page, const Paragraph &header, const ParagraphContext &context,
    const HtmlPageNumbers *leftOut)
{
    const Lines parts = headerParts(header, leftOut);
    const std::vector<Run> runs = parts.size() == 1 && leftOut ? parts.front() : model::runsOf(header);
    const TextContext text = textContext(header, runs, context);
    const bool rotated = header.rotation != 0;
    const bool spread = parts.size() > 1 && !rotated;
    const XmlElement block = startBlock(xml, context.element, spread ? "parts" : nullptr);
    writeStyle(
        xml, joinedStyle(
                 {paragraphStyle(header, text.style, context.usual),
                  spread || rotated ? QString() : headerAlignment(page, header.box)}));
    writeDirection(xml, header.rightToLeft);
    writeLanguage(xml, header.language);
    xml.writeCharacters(QString());
    if (!spread) {
        writeInline(xml, runs, text);
    }
    for (std::size_t i = 0; spread && i < parts.size(); ++i) {
        xml.writeCharacters(i > 0 ? QStringLiteral("\n") : QString());
        writeSpan(xml, parts[i], text);
    }
}

} // namespace quorra
