// SPDX-License-Identifier: GPL-3.0-or-later
#include "html_style.h"

#include "base/xml_text.h"
#include "document/font_family.h"
#include "document/page_walk.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace quorra {

namespace {

using model::Alignment;
using model::Style;

struct Thresholds
{
    double lineHeight = 1.2;   ///< em; text in a cell that is higher by less than a line needs no vertical alignment
    double nearEdge = 0.25;    ///< share of the space above and below; text nearer to an edge is aligned with it
    double sameSize = 0.25;    ///< points; smaller differences of font sizes are not visible
    double defaultMargin = 36; ///< points; of a document without text
    double minMargin = 12;     ///< points; text at the edge of the window is hard to read
    double maxMargin = 90;     ///< points; wider ones waste the width of the window
    double minTextWidth = 288; ///< points; narrower columns are hard to read
    double minIndent = 4;      ///< points; smaller ones are inaccuracies of the page
    double maxIndent = 108;    ///< points; wider ones leave no room for the text in narrow windows
    double fixedIndent = 24;   ///< points; wider indents are reduced in narrow windows
    double narrowIndent = 8;   ///< percent of the window's width; the most of such an indent
    double minBorder = 0.5;    ///< points; not all browsers draw thinner ones
};
constexpr Thresholds thresholds;

QString points(double value)
{
    return QString::number(std::round(value * 10) / 10) + QStringLiteral("pt");
}

/// Returns a length across the page, which is smaller in narrow windows.
QString width(double value)
{
    return value > thresholds.fixedIndent
               ? QStringLiteral("min(%1,%2vw)").arg(points(value), QString::number(thresholds.narrowIndent))
               : points(value);
}

QString genericFamily(const Style &style)
{
    switch (fontKind(style)) {
    case model::FontKind::FixedPitch:
        return QStringLiteral("monospace");
    case model::FontKind::Serif:
        return QStringLiteral("serif");
    default:
        return QStringLiteral("sans-serif");
    }
}

QString family(const Style &style)
{
    const QString generic = genericFamily(style);
    // Style sheets have no XML escapes, and a style attribute cannot contain the quotes that enclose it.
    QString name = xmlText(style.family);
    for (const char c : {'\'', '"', '<', '&', '\\', '\n'}) {
        name.remove(QLatin1Char(c));
    }
    return name.isEmpty() ? generic : QStringLiteral("'%1',%2").arg(name, generic);
}

QString alignment(Alignment a)
{
    switch (a) {
    case Alignment::Centre:
        return QStringLiteral("text-align:center");
    case Alignment::Right:
        return QStringLiteral("text-align:right");
    case Alignment::Justify:
        return QStringLiteral("text-align:justify");
    case Alignment::Left:
        break;
    }
    return {};
}

/// Returns the vertical alignment of text in a cell that is higher than the text by at least a line; nothing for the
/// top.
QString heightAlignment(const model::Cell &cell)
{
    Box text;
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        text = united(text, paragraph.box);
    }
    const double above = text.top - cell.box.top;
    const double below = cell.box.bottom - text.bottom;
    const std::vector<model::Run> runs = model::runsOf(cell.paragraphs.front());
    const double line = thresholds.lineHeight * (runs.empty() ? 0.0 : runs.front().style.size);
    if (above + below <= line || above < thresholds.nearEdge * (above + below)) {
        return {};
    }
    return below < thresholds.nearEdge * (above + below) ? QStringLiteral("vertical-align:bottom")
                                                         : QStringLiteral("vertical-align:middle");
}

/// The differences between two styles except bold and italic.
QStringList differences(const Style &style, const Style &around)
{
    QStringList parts;
    if (style.family != around.family) {
        parts += QStringLiteral("font-family:") + family(style);
    }
    if (std::abs(style.size - around.size) > thresholds.sameSize) {
        parts += QStringLiteral("font-size:") + points(style.size);
    }
    if (style.colour != around.colour) {
        parts += QStringLiteral("color:") + colourName(style.colour);
    }
    return parts;
}

/// Counts italic text like upright text: it gets an element of its own.
void count(model::StyleCount &counts, std::vector<model::Run> runs)
{
    for (model::Run &run : runs) {
        run.style.italic = false;
    }
    counts.add(runs);
}

} // namespace

Style usualStyle(const model::Document &document)
{
    model::StyleCount counts;
    for (const model::Page &page : document.pages) {
        model::forEachBlock(page, [&counts](const model::Block &block) {
            if (const model::Paragraph *paragraph = block.paragraph()) {
                count(counts, model::runsOf(*paragraph));
            }
        });
    }
    Style usual = counts.dominant();
    usual.bold = false;
    usual.colour = black;
    return usual;
}

Style elementStyle(const std::vector<model::Run> &runs, const Style &fallback, bool heading)
{
    model::StyleCount counts;
    count(counts, runs);
    Style style = counts.dominant(fallback);
    style.italic = false;
    style.bold = style.bold && heading;
    return style;
}

Style elementStyle(const model::Table &table, const Style &fallback)
{
    model::StyleCount counts;
    for (const model::Cell &cell : table.cells) {
        count(counts, model::runsOf(cell));
    }
    Style style = counts.dominant(fallback);
    style.italic = false;
    style.bold = false;
    return style;
}

QString styleSheet(const model::Document &document, const Style &usual)
{
    double width = 0;
    double margin = thresholds.defaultMargin;
    for (const model::Page &page : document.pages) {
        width = std::max(width, page.width);
        if (!page.content.isEmpty()) {
            margin = std::clamp(page.content.left, thresholds.minMargin, thresholds.maxMargin);
        }
    }
    const double column = std::max(width - 2 * margin, thresholds.minTextWidth);
    return QStringLiteral(
               "\nbody{font:%1/1.3 %2;color:#000;background:#fff;max-width:%3;margin:0 auto;padding:0 min(%4,6vw)}\n"
               ".page{padding:1.5em 0;overflow-wrap:break-word}\n"
               ".page+.page{border-top:1px solid #bbb}\n"
               "p,pre{margin:0 0 .6em}\n"
               ".number{float:right;margin-left:1em;font-size:.75em;color:#666}\n"
               ".number::before{content:attr(title)}\n"
               ".unseen{position:absolute;width:1px;height:1px;margin:0;overflow:hidden;clip-path:inset(50%);"
               "white-space:nowrap}\n"
               "h1,h2,h3,h4,h5,h6{margin:1em 0 .4em;font-weight:bold;line-height:1.2}\n"
               "pre{white-space:pre-wrap}\n"
               "sup,sub{font-size:.7em;line-height:0}\n"
               "ul,ol{margin:0 0 .6em;padding-left:1.6em}\n"
               "li ul,li ol{margin:0}\n"
               ".counted{list-style:none;padding-left:2.4em}\n"
               ".mark{display:inline-block;min-width:2.1em;margin-left:-2.4em}\n"
               ".entry{display:flex}\n"
               ".dots{flex:1;min-width:1em;height:1em;margin:0 .3em;border-bottom:1px dotted #888;overflow:hidden;"
               "color:transparent}\n"
               ".gap{flex:1;min-width:1em}\n"
               ".tab{display:inline-block;min-width:2em}\n"
               ".initial{float:left;line-height:.8;padding-right:.05em}\n"
               ".wide{overflow-x:auto;margin:.6em 0}\n"
               "table{border-collapse:collapse;font-size:1em}\n"
               "td,th{padding:.1em .4em;vertical-align:top;text-align:left;font-weight:normal}\n"
               "header,footer{margin:.6em 0}\n"
               "nav{max-height:40vh;overflow-y:auto;margin:.6em 0;padding-bottom:.6em;border-bottom:1px solid #bbb}\n"
               ".parts{display:flex;flex-wrap:wrap;justify-content:space-between;gap:1em}\n"
               ".shaded{padding:.4em .6em;margin:0 0 .6em}\n"
               "figure,.caption,.picture{margin:.4em 0}\n"
               ".comment{border-left:2px solid;padding-left:.6em;margin:0 0 .6em}\n"
               ".picture{position:relative;width:fit-content;max-width:100%;overflow:hidden}\n"
               "table.middle{margin:0 auto}\n"
               ".picture.middle{margin:.4em auto}\n"
               "img{display:block;max-width:100%;height:auto}\n"
               ".label{position:absolute;color:transparent;white-space:nowrap;line-height:1}\n"
               "@media "
               "print{body{max-width:none;padding:0}.page+.page{border:0;break-before:page}nav,.number{display:none}"
               ".wide{overflow:visible}h1,h2,h3,h4,h5,h6{break-after:avoid}tr,figure,.picture{break-inside:avoid}"
               "a{color:inherit}}\n")
        .arg(points(usual.size), family(usual), points(column), points(margin));
}

QString runStyle(const Style &style, const Style &around, bool heading)
{
    QStringList parts = differences(style, around);
    if (heading && around.bold && !style.bold) {
        parts += QStringLiteral("font-weight:normal");
    }
    return joinedStyle(parts);
}

QString paragraphStyle(const model::Paragraph &paragraph, const Style &style, const Style &around)
{
    const bool heading = paragraph.role == model::Role::Heading;
    QStringList parts = differences(style, around);
    if (heading && std::abs(style.size - around.size) <= thresholds.sameSize) { // browsers have another default
        parts += QStringLiteral("font-size:") + points(style.size);
    }
    if (heading && !style.bold) {
        parts += QStringLiteral("font-weight:normal");
    }
    if (paragraph.role == model::Role::PageHeader) {
        return joinedStyle(parts); // the writer of page headers aligns the parts
    }
    parts += alignment(paragraph.alignment);
    const double indent = std::min(paragraph.indentLeft, thresholds.maxIndent);
    if (indent > thresholds.minIndent && paragraph.role != model::Role::ListItem) {
        parts += QStringLiteral("margin-left:") + width(indent);
    }
    const double hang = std::max(paragraph.firstLineIndent, -thresholds.maxIndent);
    if (std::abs(hang) > thresholds.minIndent && paragraph.lines.size() > 1 &&
        paragraph.role != model::Role::ListItem) {
        const double first = std::min(hang, thresholds.maxIndent);
        parts += first < 0 ? QStringLiteral("text-indent:calc(-1 * %1)").arg(width(-first))
                           : QStringLiteral("text-indent:") + width(first);
        if (hang < 0 && indent < -hang) { // otherwise text would be outside the window
            parts += QStringLiteral("padding-left:") + width(-hang - std::max(0.0, indent));
        }
    }
    return joinedStyle(parts);
}

QString cellStyle(const model::Cell &cell)
{
    QStringList parts;
    if (!cell.paragraphs.empty()) {
        parts += alignment(cell.paragraphs.front().alignment);
        parts += heightAlignment(cell);
    }
    if (cell.background) {
        parts += QStringLiteral("background:") + colourName(*cell.background);
    }
    const bool alike = cell.left.width > 0 && cell.left.width == cell.right.width &&
                       cell.left.width == cell.top.width && cell.left.width == cell.bottom.width &&
                       cell.left.colour == cell.top.colour && cell.left.colour == cell.right.colour &&
                       cell.left.colour == cell.bottom.colour;
    if (alike) {
        parts += borderStyle("border", cell.left);
    } else {
        parts += borderStyle("border-left", cell.left);
        parts += borderStyle("border-top", cell.top);
        parts += borderStyle("border-right", cell.right);
        parts += borderStyle("border-bottom", cell.bottom);
    }
    return joinedStyle(parts);
}

QString borderStyle(const char *name, const model::Border &border)
{
    return border.width <= 0 ? QString()
                             : QStringLiteral("%1:%2 solid %3")
                                   .arg(
                                       QLatin1String(name), points(std::max(thresholds.minBorder, border.width)),
                                       colourName(border.colour));
}

QString joinedStyle(QStringList parts)
{
    parts.removeAll(QString());
    return parts.join(QLatin1Char(';'));
}

} // namespace quorra
