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

QString points(double value)
{
    return QString::number(std::round(value * 10) / 10) + QStringLiteral("pt");
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
    // A style sheet knows no XML escapes, and a style attribute no quotes inside its own.
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

// Where the text stands in a cell that is higher than its text by a line; at the top it needs no word.
QString heightAlignment(const model::Cell &cell)
{
    Box text;
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        text = united(text, paragraph.box);
    }
    const double above = text.top - cell.box.top;
    const double below = cell.box.bottom - text.bottom;
    const std::vector<model::Run> runs = model::runsOf(cell.paragraphs.front());
    const double line = 1.2 * (runs.empty() ? 0.0 : runs.front().style.size);
    if (above + below <= line || above < 0.25 * (above + below)) {
        return {};
    }
    return below < 0.25 * (above + below) ? QStringLiteral("vertical-align:bottom")
                                          : QStringLiteral("vertical-align:middle");
}

// What differs between two looks apart from bold and italic.
QStringList differences(const Style &style, const Style &around)
{
    QStringList parts;
    if (style.family != around.family) {
        parts += QStringLiteral("font-family:") + family(style);
    }
    if (std::abs(style.size - around.size) > 0.25) {
        parts += QStringLiteral("font-size:") + points(style.size);
    }
    if (style.colour != around.colour) {
        parts += QStringLiteral("color:") + colourName(style.colour);
    }
    return parts;
}

// Italic text has an element of its own, whatever the style around it.
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
        office::forEachBlock(page, [&counts](const model::Block &block) {
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
        for (const model::Paragraph &paragraph : cell.paragraphs) {
            count(counts, model::runsOf(paragraph));
        }
    }
    Style style = counts.dominant(fallback);
    style.italic = false;
    style.bold = false;
    return style;
}

QString styleSheet(const model::Document &document, const Style &usual)
{
    double width = 0;
    double margin = 36;
    for (const model::Page &page : document.pages) {
        width = std::max(width, page.width);
        if (!page.content.isEmpty()) {
            margin = std::clamp(page.content.left, 12.0, 90.0);
        }
    }
    constexpr double narrowest = 288; // points: a column that can be read
    const double column = std::max(width - 2 * margin, narrowest);
    return QStringLiteral(
               "\nbody{font:%1/1.3 %2;color:#000;background:#fff;max-width:%3;margin:0 auto;padding:0 min(%4,6vw)}\n"
               ".page{padding:1.5em 0;overflow-wrap:break-word}\n"
               ".page+.page{border-top:1px solid #bbb}\n"
               "p,pre{margin:0 0 .6em}\n"
               "h1,h2,h3{margin:1em 0 .4em;font-weight:bold;line-height:1.2}\n"
               "pre{white-space:pre-wrap}\n"
               "sup,sub{font-size:.7em;line-height:0}\n"
               "ul,ol{margin:0 0 .6em;padding-left:1.6em}\n"
               "li ul,li ol{margin:0}\n"
               ".counted{list-style:none;padding-left:2.4em}\n"
               ".mark{display:inline-block;min-width:2.1em;margin-left:-2.4em}\n"
               ".entry{display:flex}\n"
               ".dots{flex:1;min-width:1em;height:1em;margin:0 .3em;border-bottom:1px dotted #888;overflow:hidden;"
               "color:transparent}\n"
               ".gap{flex:1}\n"
               ".wide{overflow-x:auto;margin:.6em 0}\n"
               "table{border-collapse:collapse;font-size:1em}\n"
               "td,th{padding:.1em .4em;vertical-align:top;text-align:left;font-weight:normal}\n"
               "header,footer{margin:0 0 .6em}\n"
               ".parts{display:flex;justify-content:space-between;gap:1em}\n"
               ".shaded{padding:.4em .6em;margin:0 0 .6em}\n"
               ".caption,.picture{margin:.4em 0}\n"
               ".picture{position:relative;width:fit-content;max-width:100%;overflow:hidden}\n"
               "table.middle{margin:0 auto}\n"
               ".picture.middle{margin:.4em auto}\n"
               "img{display:block;max-width:100%;height:auto}\n"
               ".label{position:absolute;color:transparent;white-space:nowrap;line-height:1}\n")
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

QString paragraphStyle(const model::Paragraph &paragraph, const Style &look, const Style &around)
{
    const bool heading = paragraph.role == model::Role::Heading;
    QStringList parts = differences(look, around);
    if (heading && std::abs(look.size - around.size) <= 0.25) { // the browser's own size is another
        parts += QStringLiteral("font-size:") + points(look.size);
    }
    if (heading && !look.bold) {
        parts += QStringLiteral("font-weight:normal");
    }
    if (paragraph.role == model::Role::PageHeader) {
        return joinedStyle(parts); // its place is its parts'
    }
    parts += alignment(paragraph.alignment);
    constexpr double least = 4; // points
    constexpr double most = 108;
    const double indent = std::min(paragraph.indentLeft, most); // a narrow window shows it, too
    if (indent > least && paragraph.role != model::Role::ListItem) {
        parts += QStringLiteral("margin-left:") + points(indent);
    }
    const double hang = std::max(paragraph.firstLineIndent, -most);
    if (std::abs(hang) > least && paragraph.lines.size() > 1 && paragraph.role != model::Role::ListItem) {
        parts += QStringLiteral("text-indent:") + points(std::min(hang, most));
        if (hang < 0 && indent < -hang) { // nothing may hang out of the window
            parts += QStringLiteral("padding-left:") + points(-hang - std::max(0.0, indent));
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
    return border.width <= 0
               ? QString()
               : QStringLiteral("%1:%2 solid %3")
                     .arg(QLatin1String(name), points(std::max(0.5, border.width)), colourName(border.colour));
}

QString joinedStyle(QStringList parts)
{
    parts.removeAll(QString());
    return parts.join(QLatin1Char(';'));
}

bool isFaint(Colour colour)
{
    constexpr double faint = 0.85; // of white
    const double light = 0.299 * (colour >> 16 & 0xff) + 0.587 * (colour >> 8 & 0xff) + 0.114 * (colour & 0xff);
    return light > faint * 0xff;
}

} // namespace quorra
