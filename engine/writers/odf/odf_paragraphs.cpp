// SPDX-License-Identifier: GPL-3.0-or-later
#include "odf/odf_paragraphs.h"

#include "base/xml_text.h"
#include "odf/line_layout.h"
#include "odf/odf_lists.h"

#include <QTimeZone>

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

struct Thresholds
{
    double minRaggedIndent = 36;    ///< points; a smaller right indent of left-aligned text may be chance
    double minRightIndent = 3;      ///< points; less is how far the lines reach rather than an indent
    double raggedReserve = 12;      ///< points; by which such an indent is reduced, for words in wider fonts
    std::size_t minRaggedLines = 3; ///< lines; fewer show no right indent
    double emptyFontSize = 1;       ///< points; of a paragraph without text
    double naturalHeight = 1.15;    ///< em; of a line in common Latin fonts
    double heightStep = 0.1;        ///< points; heights that differ by less are the same to the eye
};
constexpr Thresholds thresholds;

QString parentStyle(const model::Paragraph &paragraph, const ParagraphPlace &place)
{
    if (paragraph.contentsEntry) {
        return contentsStyle(std::min(paragraph.contentsEntry->level + 1, contentsLevels));
    }
    if (place.headsContents) {
        return u"Contents_20_Heading"_s;
    }
    if (paragraph.title) {
        return u"Title"_s;
    }
    switch (paragraph.role) {
    case model::Role::Heading:
        return u"Heading_20_%1"_s.arg(paragraph.headingLevel);
    case model::Role::Caption:
        return u"Caption"_s;
    case model::Role::Footnote:
        return u"Footnote"_s;
    case model::Role::PageHeader:
        return u"Header"_s;
    case model::Role::ListItem:
        return u"List"_s;
    case model::Role::Body:
        break;
    }
    return place.inCell ? u"Table_20_Contents"_s : u"Standard"_s;
}

QString alignmentName(const model::Paragraph &paragraph)
{
    // Word processors treat "start" as left and "end" as right, whatever the direction of the text.
    if (paragraph.listItem && paragraph.alignment != model::Alignment::Justify) {
        return paragraph.rightToLeft ? u"end"_s : u"start"_s; // so that the marks are aligned
    }
    switch (paragraph.alignment) {
    case model::Alignment::Left:
        break;
    case model::Alignment::Centre:
        return u"center"_s;
    case model::Alignment::Right:
        return u"end"_s;
    case model::Alignment::Justify:
        return u"justify"_s;
    }
    return u"start"_s;
}

double rightIndent(const model::Paragraph &paragraph)
{
    switch (paragraph.alignment) {
    case model::Alignment::Right:
        return paragraph.indentRight;
    case model::Alignment::Justify:
        return paragraph.lines.size() > 1 ? paragraph.indentRight : 0;
    case model::Alignment::Left:
        return paragraph.lines.size() >= thresholds.minRaggedLines && paragraph.indentRight > thresholds.minRaggedIndent
                   ? paragraph.indentRight - thresholds.raggedReserve
                   : 0;
    case model::Alignment::Centre:
        break;
    }
    return 0;
}

/// Returns whether text of the paragraph is in ideographs or kana. How high their lines are differs much by font.
bool hasIdeographs(const model::Paragraph &paragraph)
{
    const QString text = model::plainText(paragraph);
    return std::any_of(text.begin(), text.end(), [](QChar c) {
        return c.script() == QChar::Script_Han || c.script() == QChar::Script_Hiragana ||
               c.script() == QChar::Script_Katakana || c.script() == QChar::Script_Hangul;
    });
}

Attributes::value_type lineHeight(const model::Paragraph &paragraph, const ParagraphPlace &place)
{
    const auto share = [](double part) {
        return Attributes::value_type{"fo:line-height"_L1, QString::number(std::lround(100 * part)) + u'%'};
    };
    const double height = !place.exactLeading    ? 0
                          : place.lineHeight > 0 ? place.lineHeight
                                                 : lineLayout(paragraph).lineHeight;
    if (height <= 0) {
        return share(1);
    }
    const double natural = thresholds.naturalHeight * model::largestSize(paragraph);
    if (!place.linesGrow || (height < natural && hasIdeographs(paragraph))) {
        return {"fo:line-height"_L1, pt(height)};
    }
    if (height < natural) {
        return share(height / natural);
    }
    return {"style:line-height-at-least"_L1, pt(std::round(height / thresholds.heightStep) * thresholds.heightStep)};
}

/// Indents of the edges at which lines are aligned. Right-to-left text begins at the right.
Attributes indents(const model::Paragraph &paragraph, const ParagraphPlace &place)
{
    const bool centred = paragraph.alignment == model::Alignment::Centre;
    const bool inList = paragraph.listItem.has_value();
    const bool keepsLeft = inList || (!centred && paragraph.alignment != model::Alignment::Right);
    const double left = place.left + (keepsLeft ? paragraph.indentLeft : 0);
    // A single left-aligned line can extend to the margin; otherwise it would wrap in a wider font.
    const bool ragged = paragraph.alignment == model::Alignment::Left && paragraph.lines.size() == 1;
    double right = (ragged ? std::min(0.0, place.right) : place.right) + std::max(0.0, rightIndent(paragraph));
    if (std::abs(right) < thresholds.minRightIndent) {
        right = 0;
    }
    return {
        {"fo:margin-left"_L1, pt(paragraph.rightToLeft ? right : left)},
        {"fo:margin-right"_L1, pt(paragraph.rightToLeft ? left : right)},
        {"fo:text-indent"_L1, pt(keepsLeft ? paragraph.firstLineIndent : 0)},
    };
}

Attributes paragraphProperties(const model::Paragraph &paragraph, const ParagraphPlace &place)
{
    Attributes properties = indents(paragraph, place);
    properties.insert(
        properties.end(), {{"fo:margin-top"_L1, pt(std::max(0.0, paragraph.spaceBefore + place.above))},
                           {"fo:margin-bottom"_L1, u"0pt"_s},
                           lineHeight(paragraph, place),
                           {"fo:text-align"_L1, alignmentName(paragraph)},
                           {"style:writing-mode"_L1, paragraph.rightToLeft ? u"rl-tb"_s : u"lr-tb"_s}});
    if (place.breakBefore) {
        properties.emplace_back("fo:break-before"_L1, u"page"_s);
    } else if (place.breakColumn) {
        properties.emplace_back("fo:break-before"_L1, u"column"_s);
    }
    if (place.pageNumber) {
        properties.emplace_back("style:page-number"_L1, QString::number(*place.pageNumber));
    }
    if (place.background) {
        properties.emplace_back("fo:background-color"_L1, colourName(*place.background));
    }
    const Attributes borders = ruleBorders(place);
    properties.insert(properties.end(), borders.begin(), borders.end());
    if (paragraph.headingLevel > 0) {
        properties.emplace_back("fo:keep-with-next"_L1, u"always"_s);
    }
    return properties;
}

/// Returns a tab stop. ODF positions are relative to the indent of the paragraph.
Element tabStop(const model::TabStop &stop, double indent)
{
    const bool centred = stop.alignment == model::Alignment::Centre;
    const bool atRight = stop.alignment == model::Alignment::Right;
    Element element{
        "style:tab-stop"_L1,
        {{"style:position"_L1, pt(std::max(0.0, stop.position - indent))},
         {"style:type"_L1, centred   ? u"center"_s
                           : atRight ? u"right"_s
                                     : u"left"_s}}};
    if (stop.leader) {
        element.attributes.emplace_back("style:leader-style"_L1, u"dotted"_s);
        element.attributes.emplace_back("style:leader-text"_L1, u"."_s);
    }
    return element;
}

std::vector<Element> tabStops(const model::Paragraph &paragraph)
{
    Element stops{"style:tab-stops"_L1};
    double reached = 0;
    for (const model::TabStop &stop : paragraph.tabStops) { // those of a later line may begin at the left again
        if (stop.position > reached) {
            stops.children.push_back(tabStop(stop, paragraph.indentLeft));
            reached = stop.position;
        }
    }
    return stops.children.empty() ? std::vector<Element>{} : std::vector<Element>{stops};
}

Attributes withLanguage(Attributes textLook, const QString &tag)
{
    const Attributes language = languageAttributes(tag);
    textLook.insert(textLook.end(), language.begin(), language.end());
    return textLook;
}

/// Returns the elements inside the properties of the paragraph.
std::vector<Element> paragraphDetails(const model::Paragraph &paragraph)
{
    std::vector<Element> details = tabStops(paragraph);
    if (paragraph.dropCapLines > 0) {
        const qsizetype letters = paragraph.lines.front().words.front().text.size();
        details.push_back(
            {"style:drop-cap"_L1,
             {{"style:lines"_L1, QString::number(paragraph.dropCapLines)},
              {"style:length"_L1, QString::number(letters)}}});
    }
    return details;
}

void writeMarks(QXmlStreamWriter &xml, const Marks &marks)
{
    for (const QString &name : marks.bookmarks) {
        xml.writeEmptyElement("text:bookmark"_L1);
        xml.writeAttribute("text:name"_L1, name);
    }
    for (const model::Comment *comment : marks.comments) {
        const XmlElement annotation(xml, "office:annotation"_L1);
        xml.writeTextElement("dc:creator"_L1, xmlText(comment->author));
        // Without a date, LibreOffice writes an invalid one into Word's formats.
        const QDateTime date =
            comment->date.isValid() ? comment->date : QDateTime::fromSecsSinceEpoch(0, QTimeZone::utc());
        xml.writeTextElement("dc:date"_L1, date.toString(u"yyyy-MM-ddTHH:mm:ss"));
        const QStringList lines = comment->text.split(u'\n');
        for (const QString &line : lines) {
            xml.writeTextElement("text:p"_L1, xmlText(line));
        }
    }
}

void writeContent(
    const Sink &sink, const model::Paragraph &paragraph, const std::vector<model::Run> &runs,
    const ParagraphPlace &place, const model::Style &textStyle)
{
    writeMarks(sink.xml, place.marks);
    if (paragraph.listItem && !place.list) {
        sink.xml.writeCharacters(xmlText(paragraph.listItem->mark));
        if (paragraph.firstLineIndent < 0) {
            sink.xml.writeEmptyElement("text:tab"_L1);
        } else {
            sink.xml.writeCharacters(u" "_s);
        }
    }
    if (paragraph.dropCapLines > 0 && !runs.empty()) { // the paragraph's style makes the first letter large
        std::vector<model::Run> even = runs;
        even.front().style.size = textStyle.size;
        writeRuns(sink, even, textStyle, place.withLinks);
        return;
    }
    writeRuns(sink, runs, textStyle, place.withLinks);
}

} // namespace

void Marks::add(const Marks &more)
{
    bookmarks += more.bookmarks;
    comments.insert(comments.end(), more.comments.begin(), more.comments.end());
}

QString contentsStyle(int level)
{
    return u"Contents_20_%1"_s.arg(level);
}

QString borderText(const model::Border &border)
{
    if (border.width <= 0) {
        return u"none"_s;
    }
    return pt(std::max(border.width, minLineWidth)) + " solid "_L1 + colourName(border.colour);
}

Attributes ruleBorders(const ParagraphPlace &place)
{
    Attributes borders;
    if (place.ruleAbove.width > 0) {
        borders.emplace_back("fo:border-top"_L1, borderText(place.ruleAbove));
        borders.emplace_back("fo:padding-top"_L1, pt(place.gapAbove));
    }
    if (place.ruleBelow.width > 0) {
        borders.emplace_back("fo:border-bottom"_L1, borderText(place.ruleBelow));
        borders.emplace_back("fo:padding-bottom"_L1, pt(place.gapBelow));
    }
    return borders;
}

Element paragraphStyle(const model::Paragraph &paragraph, const ParagraphPlace &place, const Attributes &textLook)
{
    Element style{
        "style:style"_L1,
        {{"style:family"_L1, u"paragraph"_s}, {"style:parent-style-name"_L1, parentStyle(paragraph, place)}},
        {{"style:paragraph-properties"_L1, paragraphProperties(paragraph, place), paragraphDetails(paragraph)},
         {"style:text-properties"_L1, withLanguage(textLook, paragraph.language)}}};
    if (!place.masterPage.isEmpty()) {
        style.attributes.emplace_back("style:master-page-name"_L1, place.masterPage);
    }
    return style;
}

Element emptyParagraphStyle(const model::Paragraph &paragraph, const ParagraphPlace &place)
{
    model::Style textStyle;
    textStyle.size = thresholds.emptyFontSize;
    ParagraphPlace low = place;
    low.lineHeight = emptyParagraphHeight;
    low.linesGrow = false;
    Element style = paragraphStyle(paragraph, low, textAttributes(textStyle));
    for (auto &[name, value] : style.attributes) {
        if (name == "style:parent-style-name"_L1) {
            value = u"Empty_20_Line"_s;
        }
    }
    return style;
}

void writeParagraph(const Sink &sink, const model::Paragraph &whole, const ParagraphPlace &place)
{
    QXmlStreamWriter &xml = sink.xml;
    const model::Paragraph paragraph = withHang(whole);
    const std::vector<model::Run> runs = model::runsOf(paragraph);
    const model::Style textStyle = dominantStyle(runs);
    sink.styles.noteFont(textStyle);
    // The title of a document and the heading of its contents are no parts of its outline.
    const bool inOutline = place.withHeadings && !paragraph.title && !place.headsContents;
    const int heading = inOutline ? paragraph.headingLevel : 0;
    const ListPosition position(sink, place.list);
    const XmlElement element(xml, heading > 0 ? "text:h"_L1 : "text:p"_L1);
    xml.writeAttribute(
        "text:style-name"_L1, sink.styles.name(paragraphStyle(paragraph, place, sink.styles.textLook(textStyle))));
    if (heading > 0) {
        xml.writeAttribute("text:outline-level"_L1, QString::number(heading));
    }
    writeContent(sink, paragraph, runs, place, textStyle);
}

XmlElement beginAnchorParagraph(const Sink &sink, const ParagraphPlace &place, const model::Paragraph &spaces)
{
    XmlElement element(sink.xml, "text:p"_L1);
    sink.xml.writeAttribute("text:style-name"_L1, sink.styles.name(emptyParagraphStyle(spaces, place)));
    writeMarks(sink.xml, place.marks);
    if (!place.marks.bookmarks.isEmpty()) {
        // LibreOffice writes a bookmark of a paragraph without text twice into .docx files.
        sink.xml.writeEmptyElement("text:s"_L1);
    }
    return element;
}

void writeAnchorParagraph(const Sink &sink, const ParagraphPlace &place)
{
    const XmlElement paragraph = beginAnchorParagraph(sink, place);
}

} // namespace quorra::office
