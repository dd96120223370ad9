// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_layout.h"

#include "document/page_transform.h"
#include "document/page_walk.h"
#include "odf/exact_lines.h"
#include "odf/line_layout.h"
#include "odf/odf_lists.h"
#include "page_styles.h"

#include <algorithm>
#include <cmath>
#include <iterator>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

struct Thresholds
{
    double sameLine = 3;     ///< points; by which the middles of a header's parts on one line differ
    double minMargin = 14;   ///< points; printers and word processors object to less
    double minBody = 72;     ///< points; between two margins
    double usualMargin = 72; ///< points; a page that is not full does not show the margin beyond its end
    double usualSide = 0.5;  ///< quantile of the pages whose side margins the others take: the median
    double usualTop = 0.1;   ///< quantile of the pages whose top margin they take: that of the full ones
    double maxOverrun = 48;  ///< points; by which text may run over the page's last line
    double footerGap = 6;    ///< points; between the text and a page footer
};
constexpr Thresholds thresholds;

double quantile(std::vector<double> values, double part)
{
    const auto at = values.begin() + std::lround(part * static_cast<double>(values.size() - 1));
    std::nth_element(values.begin(), at, values.end());
    return *at;
}

/// Returns where the content of the page begins, with the line drawn above its first paragraph.
double contentTop(const model::Page &page)
{
    double top = page.content.top;
    model::forEachBlock(page, [&top](const model::Block &block) {
        const model::Paragraph *paragraph = block.paragraph();
        if (paragraph && paragraph->borderAbove.line.width > 0) {
            const model::ParagraphBorder &border = paragraph->borderAbove;
            top = std::min(top, lineLayout(*paragraph).top - border.gap - border.line.width);
        }
    });
    return top;
}

/// Left and right margins are those of most pages: text further out gets a negative indent. Top and bottom margins are
/// those of the fullest pages: text that does not fit would begin another page.
Margins commonMargins(const model::Page &like, const model::Document &document)
{
    std::vector<double> lefts;
    std::vector<double> tops;
    std::vector<double> rights;
    std::vector<double> bottoms;
    for (const model::Page &page : document.pages) {
        if (!page.scanned && model::haveSameSize(page, like) && !page.content.isEmpty()) {
            lefts.push_back(page.content.left);
            tops.push_back(contentTop(page));
            rights.push_back(page.width - page.content.right);
            bottoms.push_back(page.height - page.content.bottom);
        }
    }
    if (lefts.empty()) {
        return {};
    }
    const auto inside = [](double margin, double side) {
        return std::clamp(
            margin, thresholds.minMargin, std::max(thresholds.minMargin, (side - thresholds.minBody) / 2));
    };
    const double left = quantile(lefts, thresholds.usualSide);
    const double right = quantile(rights, thresholds.usualSide);
    const double top = std::min(quantile(tops, thresholds.usualTop), 2 * thresholds.usualMargin);
    return {
        inside(std::min(left, std::max(right, thresholds.usualMargin)), like.width), inside(top, like.height),
        inside(std::min(right, std::max(left, thresholds.usualMargin)), like.width),
        inside(std::min(quantile(bottoms, 0), std::max(top, thresholds.usualMargin)), like.height)};
}

using Paragraphs = std::vector<model::Paragraph>;
using ParagraphRefs = std::vector<const model::Paragraph *>;

ParagraphRefs refsOf(const Paragraphs &paragraphs)
{
    ParagraphRefs refs;
    refs.reserve(paragraphs.size());
    for (const model::Paragraph &paragraph : paragraphs) {
        refs.push_back(&paragraph);
    }
    return refs;
}

Box unitedBox(const ParagraphRefs &paragraphs)
{
    Box all;
    for (const model::Paragraph *paragraph : paragraphs) {
        all = united(all, paragraph->box);
    }
    return all;
}

Box unitedBox(const Paragraphs &paragraphs)
{
    return unitedBox(refsOf(paragraphs));
}

/// Returns the paragraphs that run across the page, or those that run up or down beside its text.
Paragraphs paragraphsAlong(const Paragraphs &paragraphs, bool across)
{
    Paragraphs found;
    std::copy_if(paragraphs.begin(), paragraphs.end(), std::back_inserter(found), [across](const auto &paragraph) {
        return (paragraph.rotation % 180 == 0) == across;
    });
    return found;
}

/// The horizontal extent of header or footer.
struct Strip
{
    double left = 0;
    double right = 0;
    QString style; ///< the named style of its lines
};

/// A part keeps its distance from the edge of the strip where it is, or from the middle, so that a page number stays
/// where it is.
Element tabStop(const Box &part, const Strip &strip)
{
    const double middle = (strip.left + strip.right) / 2;
    if (std::abs(part.centreX() - middle) < thresholds.sameLine) {
        return {
            "style:tab-stop"_L1,
            {{"style:position"_L1, pt(part.centreX() - strip.left)}, {"style:type"_L1, u"center"_s}}};
    }
    if (part.left > middle && part.right > strip.right - thresholds.usualMargin) {
        return {
            "style:tab-stop"_L1, {{"style:position"_L1, pt(part.right - strip.left)}, {"style:type"_L1, u"right"_s}}};
    }
    return {"style:tab-stop"_L1, {{"style:position"_L1, pt(part.left - strip.left)}}};
}

/// Returns the border of a line of the header: the widest border of its parts, with the smallest gap.
model::ParagraphBorder sharedBorder(const ParagraphRefs &parts, model::ParagraphBorder model::Paragraph::*side)
{
    model::ParagraphBorder shared;
    double gap = 0;
    for (const model::Paragraph *part : parts) {
        const model::ParagraphBorder &own = part->*side;
        if (own.line.width > 0) {
            gap = shared.line.width > 0 ? std::min(gap, own.gap) : own.gap;
            shared = own.line.width >= shared.line.width ? own : shared;
        }
    }
    shared.gap = gap;
    return shared;
}

/// Writes a line of a header or footer as a paragraph with its parts at tab stops.
void writeHeaderLine(const Sink &sink, ParagraphRefs parts, const Strip &strip, double above)
{
    std::sort(parts.begin(), parts.end(), [](const auto *a, const auto *b) { return a->box.left < b->box.left; });
    const model::Style textStyle = dominantStyle(model::runsOf(*parts.front()));
    const Box line = unitedBox(parts);
    sink.styles.noteFont(textStyle);
    Element stops{"style:tab-stops"_L1};
    for (const model::Paragraph *part : parts) {
        stops.children.push_back(tabStop(part->box, strip));
    }
    ParagraphPlace place;
    const model::ParagraphBorder ruleAbove = sharedBorder(parts, &model::Paragraph::borderAbove);
    const model::ParagraphBorder ruleBelow = sharedBorder(parts, &model::Paragraph::borderBelow);
    place.ruleAbove = ruleAbove.line;
    place.ruleBelow = ruleBelow.line;
    place.gapAbove = ruleAbove.gap;
    place.gapBelow = ruleBelow.gap;
    const double ruleSpace = ruleAbove.line.width > 0 ? ruleAbove.gap + ruleAbove.line.width : 0;
    Attributes properties = {
        {"fo:margin-top"_L1, pt(std::max(0.0, above - ruleSpace))},
        {"fo:margin-right"_L1, pt(std::min(0.0, strip.right - line.right))}};
    const Attributes borders = ruleBorders(place);
    properties.insert(properties.end(), borders.begin(), borders.end());
    const Element style{
        "style:style"_L1,
        {{"style:family"_L1, u"paragraph"_s}, {"style:parent-style-name"_L1, strip.style}},
        {{"style:paragraph-properties"_L1, properties, {stops}},
         {"style:text-properties"_L1, sink.styles.textLook(textStyle)}}};
    const XmlElement element(sink.xml, "text:p"_L1);
    sink.xml.writeAttribute("text:style-name"_L1, sink.styles.name(style));
    for (const model::Paragraph *part : parts) {
        if (part->box.left > strip.left + thresholds.sameLine) {
            sink.xml.writeEmptyElement("text:tab"_L1);
        }
        writeRuns(sink, model::runsOf(*part), textStyle);
    }
}

/// Writes the lines of a header or footer whose area begins at `top`.
void writeHeaderLines(const Sink &sink, const Paragraphs &header, const Strip &strip, double top)
{
    ParagraphRefs parts = refsOf(header);
    std::stable_sort(
        parts.begin(), parts.end(), [](const auto *a, const auto *b) { return a->box.centreY() < b->box.centreY(); });
    double bottom = top;
    for (auto first = parts.begin(); first != parts.end();) {
        const double middle = (*first)->box.centreY();
        const auto last = std::find_if(
            first, parts.end(), [&](const auto *each) { return each->box.centreY() > middle + thresholds.sameLine; });
        const ParagraphRefs line(first, last);
        writeHeaderLine(sink, line, strip, unitedBox(line).top - bottom);
        bottom = unitedBox(line).bottom;
        first = last;
    }
}

/// Writes text that runs up or down into frames at their positions, which repeat on all pages.
void writeSideways(const Sink &sink, const Paragraphs &sideways, double pageWidth)
{
    if (sideways.empty()) {
        return;
    }
    const XmlElement holder = beginAnchorParagraph(sink, {});
    for (const model::Paragraph &paragraph : sideways) {
        writeExactLines(sink, paragraph, pageWidth, FrameAnchor::Page);
    }
}

/// Writes the paragraph of a header or footer that only other pages have, if it is empty.
void writeEmptyLine(QXmlStreamWriter &xml, bool isEmpty)
{
    if (isEmpty) {
        xml.writeEmptyElement("text:p"_L1);
    }
}

/// Header and footer of a page, and the text beside its text that runs up or down.
struct Edges
{
    Paragraphs header;
    Paragraphs footer;
    Paragraphs sideways;
};

Paragraphs joined(const Paragraphs &one, const Paragraphs &other)
{
    Paragraphs both = one;
    both.insert(both.end(), other.begin(), other.end());
    return both;
}

Edges edgesOf(const model::Page &page)
{
    return {
        paragraphsAlong(page.header, true), paragraphsAlong(page.footer, true),
        joined(paragraphsAlong(page.header, false), paragraphsAlong(page.footer, false))};
}

Element pageLayout(
    const model::Page &page, const Margins &margins, const Edges &edges,
    model::NumberFormat format = model::NumberFormat::Decimal)
{
    const double top = edges.header.empty() ? margins.top : std::min(margins.top, unitedBox(edges.header).top);
    const double end = textEnd(page, margins, edges.footer);
    const double footerBottom = edges.footer.empty() ? end : std::max(end, unitedBox(edges.footer).bottom);
    const auto area = [](QLatin1String name, double height) {
        return Element{name, {}, {{"style:header-footer-properties"_L1, {{"fo:min-height"_L1, pt(height)}}}}};
    };
    Attributes properties = {
        {"fo:page-width"_L1, pt(page.width)},
        {"fo:page-height"_L1, pt(page.height)},
        {"style:print-orientation"_L1, page.width > page.height ? u"landscape"_s : u"portrait"_s},
        {"fo:margin-left"_L1, pt(margins.left)},
        {"fo:margin-right"_L1, pt(margins.right)},
        {"fo:margin-top"_L1, pt(std::max(0.0, top))},
        {"fo:margin-bottom"_L1, pt(std::max(0.0, page.height - footerBottom))}};
    if (format != model::NumberFormat::Decimal) {
        properties.emplace_back("style:num-format"_L1, numberFormatName(format));
    }
    Element layout{"style:page-layout"_L1, {}, {{"style:page-layout-properties"_L1, properties}}};
    if (!edges.header.empty()) {
        layout.children.push_back(area("style:header-style"_L1, margins.top - top));
    }
    if (!edges.footer.empty()) {
        layout.children.push_back(area("style:footer-style"_L1, footerBottom - end));
    }
    return layout;
}

} // namespace

std::vector<Margins> pageMargins(const model::Document &document)
{
    std::vector<Margins> margins;
    for (const model::Page &page : document.pages) {
        const auto &pages = document.pages;
        const auto earlier = std::find_if(
            pages.begin(), pages.begin() + static_cast<std::ptrdiff_t>(margins.size()),
            [&](const model::Page &each) { return !each.scanned && model::haveSameSize(each, page); });
        const auto index = static_cast<std::size_t>(earlier - pages.begin());
        if (page.scanned) {
            margins.push_back({0, 0, 0, 0});
        } else {
            margins.push_back(index < margins.size() ? margins[index] : commonMargins(page, document));
        }
    }
    return margins;
}

double textEnd(const model::Page &page, const Margins &margins, const std::vector<model::Paragraph> &footer)
{
    const double end = page.height - margins.bottom;
    double farthest = page.height - std::min(margins.bottom, thresholds.minMargin);
    if (!footer.empty()) {
        farthest = std::max(end, std::min(farthest, unitedBox(footer).top - thresholds.footerGap));
    }
    return std::min(farthest, end + std::min(thresholds.maxOverrun, margins.bottom / 2));
}

QString MasterPages::name(const model::Page &page, const Margins &margins)
{
    return name(pageLayout(page, margins, {}), QString());
}

QString MasterPages::name(const PageStyle &style, const Margins &margins)
{
    const model::Page &page = *style.right;
    const bool differ = style.right != style.left;
    const Edges right = edgesOf(page);
    const Edges left = differ ? edgesOf(*style.left) : Edges();
    const Edges both{joined(right.header, left.header), joined(right.footer, left.footer), {}};
    const double headerTop = unitedBox(both.header).top;
    const double footerTop = textEnd(page, margins, both.footer);
    const double edge = page.width - margins.right;
    QString content;
    QXmlStreamWriter xml(&content);
    Sink sink{xml, m_masters.styles};
    sink.pageFields = style.fields;
    const auto writeHeader = [&](const QString &name, const Edges &own) {
        const XmlElement element(xml, name);
        writeEmptyLine(xml, own.header.empty() && own.sideways.empty());
        writeSideways(sink, own.sideways, page.width);
        writeHeaderLines(sink, own.header, {margins.left, edge, u"Header"_s}, headerTop);
    };
    const auto writeFooter = [&](const QString &name, const Edges &own) {
        const XmlElement element(xml, name);
        writeEmptyLine(xml, own.footer.empty());
        writeHeaderLines(sink, own.footer, {margins.left, edge, u"Footer"_s}, footerTop);
    };
    if (!both.header.empty() || !right.sideways.empty() || !left.sideways.empty()) {
        writeHeader(u"style:header"_s, right);
        if (differ) {
            writeHeader(u"style:header-left"_s, left);
        }
    }
    if (!both.footer.empty()) {
        writeFooter(u"style:footer"_s, right);
        if (differ) {
            writeFooter(u"style:footer-left"_s, left);
        }
    }
    return name(pageLayout(page, margins, both, style.format), content);
}

QString MasterPages::name(const Element &layout, const QString &content)
{
    const QString layoutName = m_masters.styles.name(layout);
    const QString key = layoutName + u'\n' + content;
    const auto known =
        std::find_if(m_known.begin(), m_known.end(), [&](const auto &each) { return each.first == key; });
    if (known != m_known.end()) {
        return known->second;
    }
    QString name = u"page%1"_s.arg(m_known.size() + 1);
    m_known.emplace_back(key, name);
    const XmlElement master(m_masters.xml, "style:master-page"_L1);
    m_masters.xml.writeAttribute("style:name"_L1, name);
    m_masters.xml.writeAttribute("style:page-layout-name"_L1, layoutName);
    // The content has been serialised above.
    m_masters.xml.writeCharacters(QString());
    m_masters.xml.device()->write(content.toUtf8());
    return name;
}

} // namespace quorra::office
