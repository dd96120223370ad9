// SPDX-License-Identifier: GPL-3.0-or-later
#include "odf/exact_lines.h"

#include "document/line_pieces.h"
#include "document/rotation.h"
#include "odf/font_widths.h"
#include "odf/line_layout.h"

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

struct Thresholds
{
    double minHeight = 0.4;        ///< em; word processors cut off characters in lower lines
    double minDistance = 0.6;      ///< em; baselines closer than this are not those of lines that follow one another
    double maxDistance = 4;        ///< em; neither are those farther apart
    double minSpace = 0.15;        ///< em; gaps narrower than this are none between words
    double minShift = 0.08;        ///< em; a word closer to the baseline is on it
    double maxNarrowing = 1.0 / 3; ///< em; of letter spacing: characters overlap beyond it
    double maxWidening = 0.5;      ///< em; of letter spacing within a word: wider ones read as separate letters
    double maxGapWidening = 40;    ///< em; the same for a single character: the space in a wide gap
    double spacingStep = 0.05;     ///< points; finer steps only multiply styles
    double spacingSlack = 0.15;    ///< points; by which a word may end off its place
    double sizeStep = 0.5;         ///< points; Word's font sizes are multiples of it
    double spareWidth = 24;        ///< points; that a frame is wider than its lines, so that none wraps
    double minSlideIndent = 0.1;   ///< points; slides give a line without any the indent of the line before
};
constexpr Thresholds thresholds;

/// Lines in the same frame: of the same rotation, one below the other.
using LineGroup = std::vector<model::Line>;

std::vector<LineGroup> lineGroups(const std::vector<model::Line> &lines)
{
    std::vector<LineGroup> groups;
    for (const model::Line &line : lines) {
        std::vector<model::Line> pieces = linePieces(line, model::textLimits);
        const model::Line *before = groups.empty() ? nullptr : &groups.back().back();
        const double leading = before ? line.baseline - before->baseline : 0;
        const bool follows = before && pieces.size() == 1 && line.rotation == 0 && before->rotation == 0 &&
                             leading > thresholds.minDistance * largestSize(line) &&
                             leading < thresholds.maxDistance * largestSize(line);
        if (follows) {
            groups.back().push_back(std::move(pieces.front()));
            continue;
        }
        for (model::Line &piece : pieces) {
            groups.push_back({std::move(piece)});
        }
    }
    return groups;
}

double stepped(double spacing)
{
    return std::round(spacing / thresholds.spacingStep) * thresholds.spacingStep;
}

/// Writes the words of a line such that each begins where it does on the page, provided that the widths are known.
class LineWriter
{
public:
    LineWriter(const Sink &sink, double left) : m_sink(sink), m_at(left) {}

    void write(const model::Line &line)
    {
        for (std::size_t i = 0; i < line.words.size(); ++i) {
            const model::Word &word = line.words[i];
            writePiece(word.text, *word.style, word.link, word.box.right, line.baseline - word.baseline);
            if (i + 1 == line.words.size()) {
                break;
            }
            const model::Word &following = line.words[i + 1];
            const double next = following.box.left;
            if (word.spaceAfter() || next > word.box.right + thresholds.minSpace * word.style->size) {
                const QString link = following.link == word.link ? word.link : QString();
                writePiece(u" "_s, *word.style, link, std::max(next, word.box.right), 0);
            }
        }
        flush();
    }

private:
    void writePiece(const QString &text, model::Style style, const QString &address, double end, double rise)
    {
        style.size = std::round(style.size / thresholds.sizeStep) * thresholds.sizeStep;
        const std::optional<double> natural = textWidth(text, style);
        double spacing = 0;
        if (natural) {
            style.family = measuredFamily(style);
            const auto characters = static_cast<double>(text.size());
            const double largest = (text.size() == 1 ? thresholds.maxGapWidening : thresholds.maxWidening) * style.size;
            // Keeping the previous spacing makes the file smaller and faster to open.
            const bool keeps = std::abs(m_at + *natural + characters * m_spacing - end) < thresholds.spacingSlack;
            spacing = keeps ? m_spacing
                            : std::clamp(
                                  stepped((end - m_at - *natural) / characters), -thresholds.maxNarrowing * style.size,
                                  largest);
            m_spacing = spacing;
            m_at += *natural + characters * spacing;
        } else {
            m_at = end;
        }
        const QString styleName = pieceStyle(style, spacing, rise);
        const QString link = bookmarkAddress(address);
        if (styleName != m_styleName || link != m_link) {
            flush();
            m_styleName = styleName;
            m_link = link;
        }
        m_pending += text;
    }

    void flush()
    {
        if (m_pending.isEmpty()) {
            return;
        }
        std::optional<XmlElement> link;
        if (!m_link.isEmpty()) {
            link.emplace(beginLink(m_sink.xml, m_link));
        }
        const XmlElement span(m_sink.xml, "text:span"_L1);
        m_sink.xml.writeAttribute("text:style-name"_L1, m_styleName);
        writeText(m_sink.xml, m_pending);
        m_pending.clear();
    }

    QString pieceStyle(const model::Style &style, double spacing, double rise)
    {
        m_sink.styles.noteFont(style);
        model::Style lettersOnly = style; // the lines are part of the picture behind the text
        lettersOnly.underlined = false;
        lettersOnly.struckThrough = false;
        Attributes properties = textAttributes(lettersOnly);
        properties.emplace_back("fo:letter-spacing"_L1, pt(spacing));
        properties.emplace_back("style:letter-kerning"_L1, u"false"_s);
        if (std::abs(rise) > thresholds.minShift * style.size) {
            const long percent = std::clamp(std::lround(100 * rise / style.size), -100L, 100L);
            properties.emplace_back("style:text-position"_L1, QString::number(percent) + u"% 100%"_s);
        }
        return m_sink.styles.name(
            {"style:style"_L1, {{"style:family"_L1, u"text"_s}}, {{"style:text-properties"_L1, properties}}});
    }

    const Sink &m_sink;
    double m_at;
    double m_spacing = 0;
    QString m_styleName; // style of m_pending
    QString m_link;      // target of m_pending; empty for none
    QString m_pending;   // text that is not written yet
};

void writeLine(const Sink &sink, const model::Line &line, const LinePlace &place, double indent, bool rightToLeft)
{
    const Element style{
        "style:style"_L1,
        {{"style:family"_L1, u"paragraph"_s}, {"style:parent-style-name"_L1, u"Standard"_s}},
        {{"style:paragraph-properties"_L1,
          {{"fo:margin-left"_L1, pt(indent)},
           {"fo:margin-top"_L1, pt(place.above)},
           {"fo:line-height"_L1, pt(place.height)},
           {"fo:text-align"_L1, u"left"_s},
           {"style:writing-mode"_L1, rightToLeft ? u"rl-tb"_s : u"lr-tb"_s}}}}};
    const XmlElement element(sink.xml, "text:p"_L1);
    sink.xml.writeAttribute("text:style-name"_L1, sink.styles.name(style));
    LineWriter(sink, line.box.left).write(line);
}

bool readsRightToLeft(const model::Line &line)
{
    return line.words.size() > 1 && line.words.front().box.left > line.words.back().box.left;
}

/// Returns the line as if it ran from left to right; coordinates refer to the page rotated about its origin.
model::Line uprightLine(const model::Line &line)
{
    model::Paragraph paragraph;
    paragraph.rotation = line.rotation;
    paragraph.lines = {line};
    return model::uprightParagraph(std::move(paragraph), 0, 0).lines.front();
}

/// Writes text that runs down or up the page into a frame of this direction.
void writeRotated(const Sink &sink, const model::Line &line, FrameAnchor anchor)
{
    const double size = largestSize(line);
    const double height = lineHeights.usual * size;
    const model::Line upright = uprightLine(line);
    const double top = upright.baseline - riseOf(size);
    const Box box = model::rotationToPage(line.rotation, 0, 0)
                        .box({upright.box.left, top, upright.box.right + thresholds.spareWidth, top + height});
    const FrameDirection direction = line.rotation == 90 ? FrameDirection::Down : FrameDirection::Up;
    const TextFrame frame = beginTextFrame(sink, box, anchor, false, direction);
    writeLine(sink, upright, {0, height}, 0, false);
}

void writeGroup(const Sink &sink, const LineGroup &group, double pageWidth, FrameAnchor anchor)
{
    const int rotation = group.front().rotation;
    if (rotation == 90 || rotation == 270) {
        writeRotated(sink, group.front(), anchor);
        return;
    }
    std::vector<double> baselines;
    std::vector<double> sizes;
    Box box;
    for (const model::Line &line : group) {
        baselines.push_back(line.rotation == 0 ? line.baseline : line.box.bottom);
        sizes.push_back(largestSize(line));
        box = united(box, line.box);
    }
    box.top = baselines.front() - riseOf(sizes.front());
    box.right = std::min(std::max(box.right, pageWidth - 1), box.right + thresholds.spareWidth);
    const std::vector<LinePlace> places = placeLines(box.top, baselines, sizes);
    double height = 0;
    for (const LinePlace &place : places) {
        height += place.above + place.height;
    }
    box.bottom = box.top + height;
    const TextFrame frame = beginTextFrame(sink, box, anchor, anchor == FrameAnchor::Page);
    const double least = anchor == FrameAnchor::Slide ? thresholds.minSlideIndent : 0;
    for (std::size_t i = 0; i < group.size(); ++i) {
        const double indent = std::max(least, group[i].box.left - box.left);
        writeLine(sink, group[i], places[i], indent, readsRightToLeft(group[i]));
    }
}

} // namespace

double riseOf(double size)
{
    return baselineShare * lineHeights.usual * size;
}

std::vector<LinePlace> placeLines(double top, const std::vector<double> &baselines, const std::vector<double> &sizes)
{
    std::vector<LinePlace> places;
    double bottom = top;
    for (std::size_t i = 0; i < baselines.size(); ++i) {
        const double rise = baselines[i] - bottom;
        const double usual = riseOf(sizes[i]);
        LinePlace place;
        place.above = std::max(0.0, rise - usual);
        place.height = std::max(thresholds.minHeight * sizes[i], (rise - place.above) / baselineShare);
        places.push_back(place);
        bottom += place.above + place.height;
    }
    return places;
}

void writeExactLines(const Sink &sink, const model::Paragraph &paragraph, double pageWidth, FrameAnchor anchor)
{
    for (const LineGroup &group : lineGroups(paragraph.lines)) {
        writeGroup(sink, group, pageWidth, anchor);
    }
}

} // namespace quorra::office
