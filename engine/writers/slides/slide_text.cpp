// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide_text.h"

#include "base/xml_text.h"
#include "document/link.h"
#include "document/page_walk.h"
#include "document/rotation.h"
#include "odf/font_widths.h"
#include "odf/line_layout.h"
#include "odf/placed_page.h"
#include "slide_fit.h"
#include "slide_title.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <stack>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

struct Thresholds
{
    double descent = 0.21;    ///< em; of a line of fixed height below its baseline
    double minSpare = 6;      ///< points; by which a line may be wider in another font
    double spareWidth = 0.08; ///< likewise, share of its width
    double flowSpare = 3;     ///< points; beside text with known widths
    double rounding = 1;      ///< points; by which rounded letter spacing may widen a line
    double minIndent = 0.1;   ///< points; without any indent, slides ignore that of the first line
    qsizetype maxSpaces = 20; ///< characters; between the mark of a list item and its text
};
constexpr Thresholds thresholds;

bool isPlain(const QString &text)
{
    return !text.contains(u'\n') && !text.contains(u'\t');
}

/// A link on a slide is a field: it has the style around it, contains only characters, and does not break. Therefore
/// each word becomes a link.
void writeLink(const Sink &sink, const model::Run &run, const model::Style &paragraphStyle, const QString &target)
{
    const model::Style &style = run.style;
    qsizetype at = 0;
    while (at < run.text.size()) {
        const qsizetype space = run.text.indexOf(u' ', at);
        const qsizetype end = space < 0 ? run.text.size() : space;
        if (end > at) {
            const XmlElement span(sink.xml, "text:span"_L1);
            sink.xml.writeAttribute("text:style-name"_L1, sink.styles.text(style));
            const XmlElement link = beginLink(sink.xml, target);
            sink.xml.writeCharacters(xmlText(run.text.mid(at, end - at)));
        }
        if (space >= 0) {
            writeRuns(sink, {{u" "_s, style, model::BaselineShift::None, {}}}, paragraphStyle, false);
        }
        at = end + 1;
    }
}

/// As many spaces as fit between the mark and the text on the page.
QString spacesAfterMark(const model::Paragraph &paragraph)
{
    if (paragraph.lines.empty() || paragraph.lines.front().words.size() < 2) {
        return u" "_s;
    }
    const std::vector<model::Word> &words = paragraph.lines.front().words;
    const double gap = words[1].box.left - words[0].box.right;
    const bool isMark = paragraph.listItem && words[0].text == paragraph.listItem->mark;
    const qsizetype spaces = isMark ? std::lround(gap / (usualSpaceWidth * words[1].style->size)) : 1;
    return QString(std::clamp<qsizetype>(spaces, 1, thresholds.maxSpaces), u' ');
}

/// Returns the frame for lines that do not wrap, with room on the side to which they extend in a wider font.
Box roomOfLines(const Box &box, model::Alignment alignment)
{
    const double spare = thresholds.minSpare + thresholds.spareWidth * box.width();
    Box room = box;
    room.left -= alignment == model::Alignment::Left ? 0 : spare;
    room.right += alignment == model::Alignment::Right ? 0 : spare;
    return room;
}

/// Returns the frame for text that wraps: as wide as on the page; wider if there is room and the widths are not known.
Box roomOfFlow(const model::Page &page, const model::Paragraph &paragraph, const SlideOrientation &orientation)
{
    if (paragraph.alignment == model::Alignment::Justify) {
        return paragraph.box;
    }
    if (!hasKnownWidths(paragraph)) {
        return orientation.rotation == 0 && !paragraph.rightToLeft ? roomyBox(page, paragraph.box) : paragraph.box;
    }
    Box room = paragraph.box;
    room.left -= paragraph.rightToLeft ? thresholds.flowSpare : 0;
    room.right += paragraph.rightToLeft ? 0 : thresholds.flowSpare;
    return room;
}

/// Returns the paragraph of a box of its own with its runs as they are written: lines that do not wrap keep their ends.
model::Paragraph alignedAlone(const model::Paragraph &paragraph)
{
    model::Paragraph piece = paragraph;
    if (keepsLines(piece)) {
        if (piece.lines.size() < 2 && piece.alignment != model::Alignment::Centre) {
            piece.alignment = piece.rightToLeft ? model::Alignment::Right : model::Alignment::Left;
        } else if (piece.alignment == model::Alignment::Justify) {
            piece.alignment = model::Alignment::Left;
        }
    }
    return piece;
}

double baselineOf(const model::Paragraph &paragraph)
{
    return paragraph.lines.empty() ? paragraph.box.top + slideRise(paragraph) : paragraph.lines.front().baseline;
}

double heightOf(const model::Paragraph &paragraph, double leading)
{
    return static_cast<double>(std::max<std::size_t>(1, paragraph.lines.size())) * leading;
}

/// The frame of a box that several paragraphs share, without its height.
Box roomOfBox(const model::Page &page, const SlideBox &box)
{
    Box room = box.paragraphs.front().box;
    bool justified = false;
    bool known = true;
    for (const model::Paragraph &paragraph : box.paragraphs) {
        room = united(room, paragraph.box);
        justified |= paragraph.alignment == model::Alignment::Justify && paragraph.lines.size() > 1;
        known &= hasKnownWidths(paragraph);
    }
    if (known || box.rotation != 0) {
        room.right += justified ? 0 : thresholds.flowSpare;
        return room;
    }
    return justified ? room : roomyBox(page, room);
}

struct BoxLayout
{
    Box frame;
    bool wraps = true;
};

BoxLayout layoutOf(const model::Page &page, const SlideBox &box, const SlideOrientation &orientation)
{
    const model::Paragraph &first = box.paragraphs.front();
    const model::Paragraph &last = box.paragraphs.back();
    BoxLayout layout;
    if (box.paragraphs.size() > 1) {
        layout.frame = roomOfBox(page, box);
    } else {
        layout.wraps = !keepsLines(first);
        layout.frame =
            layout.wraps ? roomOfFlow(page, first, orientation) : roomOfLines(first.box, alignedAlone(first).alignment);
    }
    layout.frame.top = baselineOf(first) - slideRise(first);
    layout.frame.bottom = baselineOf(last) - slideRise(last) + heightOf(last, slideLeading(last));
    return layout;
}

/// Writes a paragraph of a box whose text so far ends at this y coordinate; returns where it ends with the paragraph.
double writeBoxParagraph(
    const Sink &sink, const model::Paragraph &paragraph, const std::optional<SlideList> &list, const Box &frame,
    double above)
{
    model::Paragraph placed = alignedAlone(paragraph);
    const bool centred = placed.alignment == model::Alignment::Centre;
    SlideParagraph text{keepsLines(paragraph) ? runsByLine(paragraph) : model::runsOf(paragraph)};
    const TextFit fit =
        fittingText(paragraph, frame.right - (centred ? frame.left : placed.box.left) - thresholds.rounding);
    text.runs = scaledRuns(std::move(text.runs), fit.scale);
    text.spacing = fit.spacing;
    text.list = list;
    // Lines closer than usual get less height, so that those below stay in place.
    const double size = largestSize(paragraph);
    const double usual = slideLeading(paragraph);
    const double missing = std::max(0.0, above - (baselineOf(paragraph) - slideRise(paragraph)));
    text.leading = std::max(usual - missing, std::min(usual, lineHeights.min * size));
    const double top = baselineOf(paragraph) - (text.leading - thresholds.descent * size);
    const double hang = list ? list->hang : std::max(0.0, -paragraph.firstLineIndent);
    placed.indentLeft = std::max(thresholds.minIndent, placed.box.left - frame.left + hang);
    placed.indentRight = 0;
    placed.spaceBefore = std::max(0.0, top - above);
    if (list) {
        placed.firstLineIndent = -list->hang;
    } else if (placed.lines.size() < 2) {
        placed.firstLineIndent = std::min(0.0, placed.firstLineIndent);
    }
    writeSlideParagraph(sink, placed, text);
    return above + placed.spaceBefore + heightOf(paragraph, text.leading);
}

/// The elements of a list around a paragraph at this level; none for level 0. The outermost list has the style.
class OpenLists
{
public:
    OpenLists(const Sink &sink, const std::optional<SlideList> &list)
    {
        for (int level = 0; list && level < list->level; ++level) {
            m_open.emplace(sink.xml, "text:list"_L1);
            if (level == 0) {
                sink.xml.writeAttribute("text:style-name"_L1, sink.styles.name(list->style));
            }
            m_open.emplace(sink.xml, "text:list-item"_L1);
        }
    }

    ~OpenLists()
    {
        while (!m_open.empty()) {
            m_open.pop();
        }
    }

    Q_DISABLE_COPY_MOVE(OpenLists)

private:
    std::stack<XmlElement> m_open;
};

void writeTitle(const Sink &sink, const model::Page &page, const model::Paragraph &paragraph)
{
    model::Paragraph title = paragraph;
    const TitleFrame room = titleFrame(title, page);
    Box frame = room.box;
    const TextFit fit = fittingText(title, frame.width() - thresholds.rounding);
    SlideParagraph text{scaledRuns(model::runsOf(title), fit.scale), fit.spacing, slideLeading(title)};
    frame.top = baselineOf(title) - slideRise(title);
    frame.bottom = frame.top + heightOf(title, text.leading);
    title.indentLeft =
        std::max(thresholds.minIndent, title.alignment == model::Alignment::Left ? title.box.left - frame.left : 0);
    title.indentRight = 0;
    title.spaceBefore = 0;
    const TextFrame open =
        beginSlideFrame(sink, {BoxKind::Title, frame, {0, page.width, page.height}, room.wraps, title.alignment});
    writeSlideParagraph(sink, title, text);
}

} // namespace

QString slideTarget(const QString &link)
{
    return model::linkAddress(link, "#Page "_L1);
}

void dropDeadLinks(model::Document &document)
{
    std::set<QString> pages;
    for (const model::Page &page : document.pages) {
        pages.insert(model::pageLink(page.number));
    }
    for (model::Page &page : document.pages) {
        forEachParagraph(page, [&](model::Paragraph &paragraph) {
            for (model::Line &line : paragraph.lines) {
                for (model::Word &word : line.words) {
                    if (word.link.startsWith(u'#') && pages.count(word.link) == 0) {
                        word.link.clear();
                    }
                }
            }
        });
    }
}

double slideLeading(const model::Paragraph &paragraph)
{
    const double size = largestSize(paragraph);
    const bool isLeading = paragraph.lineDistance > 0 && paragraph.lineDistance <= lineHeights.max * size;
    return isLeading ? std::max(paragraph.lineDistance, lineHeights.min * size) : lineHeights.usual * size;
}

double slideRise(const model::Paragraph &paragraph)
{
    return slideLeading(paragraph) - thresholds.descent * largestSize(paragraph);
}

void writeSlideParagraph(const Sink &sink, const model::Paragraph &paragraph, const SlideParagraph &text)
{
    const model::Style textStyle = dominantStyle(text.runs);
    sink.styles.noteFont(textStyle);
    ParagraphPlace place;
    place.lineHeight = text.leading;
    Element style = paragraphStyle(paragraph, place, textAttributes(textStyle));
    if (paragraph.alignment == model::Alignment::Right) {
        for (auto &[name, value] : style.children.front().attributes) {
            if (name == "fo:text-align"_L1) {
                value = u"end"_s; // on slides this is right, whatever the direction of the text
            }
        }
    }
    if (text.spacing != 0) {
        style.children.back().attributes.emplace_back("fo:letter-spacing"_L1, pt(text.spacing));
    }
    const OpenLists lists(sink, text.list);
    const XmlElement element(sink.xml, "text:p"_L1);
    sink.xml.writeAttribute("text:style-name"_L1, sink.styles.name(style));
    if (paragraph.listItem && !text.list) {
        sink.xml.writeCharacters(xmlText(paragraph.listItem->mark));
        if (paragraph.firstLineIndent < 0) {
            sink.xml.writeEmptyElement("text:tab"_L1);
        } else {
            writeText(sink.xml, spacesAfterMark(paragraph));
        }
    }
    for (const model::Run &run : text.runs) {
        const QString target = text.withLinks && isPlain(run.text) ? slideTarget(run.link) : QString();
        if (target.isEmpty() || run.text.trimmed().isEmpty()) {
            writeRuns(sink, {run}, textStyle, false);
        } else {
            writeLink(sink, run, textStyle, target);
        }
    }
}

void writeEmptySlideParagraph(const Sink &sink, const model::Paragraph &paragraph)
{
    model::Paragraph leaded = paragraph;
    leaded.lineDistance = 1;
    const XmlElement element(sink.xml, "text:p"_L1);
    sink.xml.writeAttribute("text:style-name"_L1, sink.styles.name(emptyParagraphStyle(leaded, {})));
    sink.xml.writeEmptyElement("text:s"_L1); // a paragraph without any text has the default size of 18 or 24 points
}

void writeSlideBox(const Sink &sink, const model::Page &page, const SlideBox &box)
{
    if (box.kind == BoxKind::Title) {
        writeTitle(sink, page, box.paragraphs.front());
        return;
    }
    const SlideOrientation orientation{box.rotation, page.width, page.height};
    const BoxLayout layout = layoutOf(page, box, orientation);
    const model::Alignment alignment = alignedAlone(box.paragraphs.front()).alignment;
    const TextFrame frame = beginSlideFrame(sink, {box.kind, layout.frame, orientation, layout.wraps, alignment});
    const std::vector<std::optional<SlideList>> lists = slideLists(box.paragraphs);
    double above = layout.frame.top;
    for (std::size_t i = 0; i < box.paragraphs.size(); ++i) {
        above = writeBoxParagraph(sink, box.paragraphs[i], lists[i], layout.frame, above);
    }
}

} // namespace quorra::office
