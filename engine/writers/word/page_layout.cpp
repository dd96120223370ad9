// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_layout.h"

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

struct Thresholds
{
    double sameSize = 1;     ///< points; by which the sides of pages of one size differ
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

bool sameSize(const model::Page &a, const model::Page &b)
{
    return std::abs(a.width - b.width) < thresholds.sameSize && std::abs(a.height - b.height) < thresholds.sameSize;
}

double quantile(std::vector<double> values, double part)
{
    const auto at = values.begin() + std::lround(part * static_cast<double>(values.size() - 1));
    std::nth_element(values.begin(), at, values.end());
    return *at;
}

// Left and right as on most pages: what stands further out gets a negative indent. Top and bottom as on the fullest
// pages: text that does not fit would begin a page of its own.
Margins commonMargins(const model::Page &like, const model::Document &document)
{
    std::vector<double> lefts;
    std::vector<double> tops;
    std::vector<double> rights;
    std::vector<double> bottoms;
    for (const model::Page &page : document.pages) {
        if (!page.scanned && sameSize(page, like) && !page.content.isEmpty()) {
            lefts.push_back(page.content.left);
            tops.push_back(page.content.top);
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

Box unitedBox(const std::vector<const model::Paragraph *> &paragraphs)
{
    Box all;
    for (const model::Paragraph *paragraph : paragraphs) {
        all = united(all, paragraph->box);
    }
    return all;
}

// The strip that header and footer stand in.
struct Strip
{
    double left = 0;
    double right = 0;
};

// A part keeps the side of the strip that it stands at, or its middle: so a page number stays where it is.
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

// The parts of one line share the lines drawn along it: the widest of these, at the part nearest to it.
model::ParagraphBorder
sharedBorder(const std::vector<const model::Paragraph *> &parts, model::ParagraphBorder model::Paragraph::*side)
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

// One paragraph for each line of the header, its parts at tab stops.
void writeHeadLine(const Sink &sink, std::vector<const model::Paragraph *> parts, const Strip &strip, double above)
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
        {{"style:family"_L1, u"paragraph"_s}, {"style:parent-style-name"_L1, u"Header"_s}},
        {{"style:paragraph-properties"_L1, properties, {stops}},
         {"style:text-properties"_L1, textAttributes(textStyle)}}};
    const XmlElement element(sink.xml, "text:p"_L1);
    sink.xml.writeAttribute("text:style-name"_L1, sink.styles.name(style));
    for (const model::Paragraph *part : parts) {
        if (part->box.left > strip.left + thresholds.sameLine) {
            sink.xml.writeEmptyElement("text:tab"_L1);
        }
        writeRuns(sink, model::runsOf(*part), textStyle);
    }
}

void writeHeads(const Sink &sink, std::vector<const model::Paragraph *> heads, const Strip &strip, double top)
{
    std::stable_sort(
        heads.begin(), heads.end(), [](const auto *a, const auto *b) { return a->box.centreY() < b->box.centreY(); });
    double bottom = top;
    for (auto first = heads.begin(); first != heads.end();) {
        const double middle = (*first)->box.centreY();
        const auto last = std::find_if(
            first, heads.end(), [&](const auto *each) { return each->box.centreY() > middle + thresholds.sameLine; });
        const std::vector<const model::Paragraph *> line(first, last);
        writeHeadLine(sink, line, strip, unitedBox(line).top - bottom);
        bottom = unitedBox(line).bottom;
        first = last;
    }
}

} // namespace

std::vector<Margins> pageMargins(const model::Document &document)
{
    std::vector<Margins> margins;
    for (const model::Page &page : document.pages) {
        const auto &pages = document.pages;
        const auto earlier = std::find_if(
            pages.begin(), pages.begin() + static_cast<std::ptrdiff_t>(margins.size()),
            [&](const model::Page &each) { return !each.scanned && sameSize(each, page); });
        const auto index = static_cast<std::size_t>(earlier - pages.begin());
        if (page.scanned) {
            margins.push_back({0, 0, 0, 0});
        } else {
            margins.push_back(index < margins.size() ? margins[index] : commonMargins(page, document));
        }
    }
    return margins;
}

Heads headsOf(const model::Page &page)
{
    Heads heads;
    for (const model::Paragraph &paragraph : page.header) {
        heads.above.push_back(&paragraph);
    }
    for (const model::Paragraph &paragraph : page.footer) {
        heads.below.push_back(&paragraph);
    }
    return heads;
}

double textEnd(const model::Page &page, const Margins &margins, const Heads &heads)
{
    const double end = page.height - margins.bottom;
    double farthest = page.height - std::min(margins.bottom, thresholds.minMargin);
    if (!heads.below.empty()) {
        farthest = std::max(end, std::min(farthest, unitedBox(heads.below).top - thresholds.footerGap));
    }
    return std::min(farthest, end + std::min(thresholds.maxOverrun, margins.bottom / 2));
}

QString MasterPages::layout(const model::Page &page, const Margins &margins, const Heads &heads)
{
    const double headTop = heads.above.empty() ? margins.top : std::min(margins.top, unitedBox(heads.above).top);
    const double end = textEnd(page, margins, heads);
    const double footBottom = heads.below.empty() ? end : std::max(end, unitedBox(heads.below).bottom);
    const auto room = [](QLatin1String name, double height) {
        return Element{name, {}, {{"style:header-footer-properties"_L1, {{"fo:min-height"_L1, pt(height)}}}}};
    };
    Element layout{
        "style:page-layout"_L1,
        {},
        {{"style:page-layout-properties"_L1,
          {{"fo:page-width"_L1, pt(page.width)},
           {"fo:page-height"_L1, pt(page.height)},
           {"style:print-orientation"_L1, page.width > page.height ? u"landscape"_s : u"portrait"_s},
           {"fo:margin-left"_L1, pt(margins.left)},
           {"fo:margin-right"_L1, pt(margins.right)},
           {"fo:margin-top"_L1, pt(std::max(0.0, headTop))},
           {"fo:margin-bottom"_L1, pt(std::max(0.0, page.height - footBottom))}}}}};
    if (!heads.above.empty()) {
        layout.children.push_back(room("style:header-style"_L1, margins.top - headTop));
    }
    if (!heads.below.empty()) {
        layout.children.push_back(room("style:footer-style"_L1, footBottom - end));
    }
    return m_masters.styles.name(layout);
}

QString MasterPages::name(const model::Page &page, const Margins &margins, bool withHeads)
{
    const Heads heads = withHeads ? headsOf(page) : Heads{};
    QString inside;
    QXmlStreamWriter xml(&inside);
    const Sink sink{xml, m_masters.styles};
    const Strip strip{margins.left, page.width - margins.right};
    if (!heads.above.empty()) {
        const XmlElement header(xml, "style:header"_L1);
        writeHeads(sink, heads.above, strip, unitedBox(heads.above).top);
    }
    if (!heads.below.empty()) {
        const XmlElement footer(xml, "style:footer"_L1);
        writeHeads(sink, heads.below, strip, textEnd(page, margins, heads));
    }
    const QString pageLayout = layout(page, margins, heads);
    const QString key = pageLayout + u'\n' + inside;
    const auto known =
        std::find_if(m_known.begin(), m_known.end(), [&](const auto &each) { return each.first == key; });
    if (known != m_known.end()) {
        return known->second;
    }
    QString name = u"page%1"_s.arg(m_known.size() + 1);
    m_known.emplace_back(key, name);
    const XmlElement master(m_masters.xml, "style:master-page"_L1);
    m_masters.xml.writeAttribute("style:name"_L1, name);
    m_masters.xml.writeAttribute("style:page-layout-name"_L1, pageLayout);
    // Written once already for comparison; the text goes in as it is.
    m_masters.xml.writeCharacters(QString());
    m_masters.xml.device()->write(inside.toUtf8());
    return name;
}

} // namespace quorra::office
