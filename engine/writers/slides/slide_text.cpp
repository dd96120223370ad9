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

#include <algorithm>
#include <cmath>
#include <set>

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
Box roomOfFlow(const model::Page &page, const model::Paragraph &paragraph, const SlideTurn &turn)
{
    if (paragraph.alignment == model::Alignment::Justify) {
        return paragraph.box;
    }
    if (!hasKnownWidths(paragraph)) {
        return turn.rotation == 0 && !paragraph.rightToLeft ? roomyBox(page, paragraph.box) : paragraph.box;
    }
    Box room = paragraph.box;
    room.left -= paragraph.rightToLeft ? thresholds.flowSpare : 0;
    room.right += paragraph.rightToLeft ? 0 : thresholds.flowSpare;
    return room;
}

void writePiece(const Sink &sink, const model::Page &page, model::Paragraph piece, const SlideTurn &turn)
{
    const bool lines = keepsLines(piece);
    const std::vector<model::Run> runs = lines ? runsByLine(piece) : model::runsOf(piece);
    if (lines) {
        if (piece.lines.size() < 2 && piece.alignment != model::Alignment::Centre) {
            piece.alignment = piece.rightToLeft ? model::Alignment::Right : model::Alignment::Left;
        } else if (piece.alignment == model::Alignment::Justify) {
            piece.alignment = model::Alignment::Left;
        }
    }
    const Box room = lines ? roomOfLines(piece.box, piece.alignment) : roomOfFlow(page, piece, turn);
    const double spacing = fittingSpacing(piece, room.width() - thresholds.rounding);
    const auto count = static_cast<double>(std::max<std::size_t>(1, piece.lines.size()));
    const double baseline = piece.lines.empty() ? piece.box.top + slideRise(piece) : piece.lines.front().baseline;
    Box frame = room;
    frame.top = baseline - slideRise(piece);
    frame.bottom = frame.top + count * slideLeading(piece);
    const TextFrame open = beginSlideFrame(sink, frame, turn, !lines, piece.alignment);
    piece.indentLeft =
        std::max(thresholds.minIndent, piece.box.left - room.left + std::max(0.0, -piece.firstLineIndent));
    piece.indentRight = 0;
    piece.spaceBefore = 0;
    if (piece.lines.size() < 2) {
        piece.firstLineIndent = std::min(0.0, piece.firstLineIndent);
    }
    writeSlideParagraph(sink, piece, runs, spacing, true);
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

void writeSlideParagraph(
    const Sink &sink, const model::Paragraph &paragraph, const std::vector<model::Run> &runs, double spacing,
    bool withLinks)
{
    model::Paragraph leaded = paragraph;
    leaded.lineDistance = slideLeading(paragraph);
    const model::Style textStyle = dominantStyle(runs);
    sink.styles.noteFont(textStyle);
    Element style = paragraphStyle(leaded, {}, textStyle);
    if (paragraph.alignment == model::Alignment::Right) {
        for (auto &[name, value] : style.children.front().attributes) {
            if (name == "fo:text-align"_L1) {
                value = u"end"_s; // on slides this is right, whatever the direction of the text
            }
        }
    }
    if (spacing != 0) {
        style.children.back().attributes.emplace_back("fo:letter-spacing"_L1, pt(spacing));
    }
    const XmlElement element(sink.xml, "text:p"_L1);
    sink.xml.writeAttribute("text:style-name"_L1, sink.styles.name(style));
    if (paragraph.listItem) {
        sink.xml.writeCharacters(xmlText(paragraph.listItem->mark));
        if (paragraph.firstLineIndent < 0) {
            sink.xml.writeEmptyElement("text:tab"_L1);
        } else {
            writeText(sink.xml, spacesAfterMark(paragraph));
        }
    }
    for (const model::Run &run : runs) {
        const QString target = withLinks && isPlain(run.text) ? slideTarget(run.link) : QString();
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
}

void writeSlideText(const Sink &sink, const model::Page &page, const model::Paragraph &paragraph, bool labels)
{
    const SlideTurn turn{paragraph.rotation, page.width, page.height};
    for (model::Paragraph &piece :
         paragraphPieces(model::uprightParagraph(paragraph, page.width, page.height), labels)) {
        writePiece(sink, page, std::move(piece), turn);
    }
}

} // namespace quorra::office
