// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/writers/html_style.h"

#include <QHash>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quorra {

namespace {

using model::Alignment;
using model::Style;

QString points(double value)
{
    return QString::number(std::round(value * 10) / 10) + QStringLiteral("pt");
}

QString colour(model::Colour c)
{
    return QStringLiteral("#%1").arg(c, 6, 16, QLatin1Char('0'));
}

QString family(const Style &style)
{
    const QString generic = style.fixedPitch ? QStringLiteral("monospace")
                            : style.serif    ? QStringLiteral("serif")
                                             : QStringLiteral("sans-serif");
    QString name = style.family;
    name.remove(QLatin1Char('\'')).remove(QLatin1Char('"')).remove(QLatin1Char('<')).remove(QLatin1Char('\\'));
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

QString border(const char *side, const model::Border &border)
{
    return border.width <= 0
               ? QString()
               : QStringLiteral("border-%1:%2 solid %3")
                     .arg(QLatin1String(side), points(std::max(0.5, border.width)), colour(border.colour));
}

QString joined(QStringList parts)
{
    parts.removeAll(QString());
    return parts.join(QLatin1Char(';'));
}

} // namespace

Style usualStyle(const model::Document &document)
{
    QHash<QString, std::pair<qsizetype, Style>> letters;
    for (const model::Page &page : document.pages) {
        for (const model::Section &section : page.sections) {
            for (const model::Block &block : section.blocks) {
                const model::Paragraph *paragraph = block.paragraph();
                for (std::size_t i = 0; paragraph && i < paragraph->runs.size(); ++i) {
                    const model::Run &run = paragraph->runs[i];
                    auto &entry = letters[run.style.family + QString::number(std::lround(run.style.size * 2))];
                    entry.first += run.text.size();
                    entry.second = run.style;
                }
            }
        }
    }
    std::pair<qsizetype, Style> best;
    for (const auto &entry : std::as_const(letters)) {
        best = entry.first > best.first ? entry : best;
    }
    best.second.bold = best.second.italic = false;
    best.second.colour = model::black;
    best.second.link.clear();
    return best.second;
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
    return QStringLiteral("\nbody{font:%1 %2;color:#000;background:#fff;max-width:%3;margin:0 auto;padding:0 %4}\n"
                          ".page{margin:1.5em 0}\n"
                          "p,pre{margin:0 0 .6em}\n"
                          "h1,h2,h3{margin:1em 0 .4em;font-weight:bold}\n"
                          "pre{font-family:monospace;white-space:pre-wrap}\n"
                          "ul{margin:0 0 .6em;padding-left:1.6em}\n"
                          ".counted{list-style:none}\n"
                          "table{border-collapse:collapse;margin:.6em 0}\n"
                          "td,th{padding:.1em .4em;vertical-align:top;text-align:left;font-weight:normal}\n"
                          "header,footer{margin:0 0 .6em}\n"
                          ".caption,.picture{margin:.4em 0}\n"
                          "img{max-width:100%;height:auto}\n")
        .arg(points(usual.size), family(usual), points(width - 2 * margin), points(margin));
}

QString runStyle(const Style &style, const Style &usual, bool heading)
{
    QStringList parts;
    if (style.family != usual.family) {
        parts += QStringLiteral("font-family:") + family(style);
    }
    if (heading || std::abs(style.size - usual.size) > 0.25) {
        parts += QStringLiteral("font-size:") + points(style.size);
    }
    if (heading && !style.bold) {
        parts += QStringLiteral("font-weight:normal");
    }
    if (style.colour != model::black) {
        parts += QStringLiteral("color:") + colour(style.colour);
    }
    return joined(parts);
}

QString paragraphStyle(const model::Paragraph &paragraph)
{
    QStringList parts{alignment(paragraph.alignment)};
    constexpr double least = 4; // points
    if (paragraph.indentLeft > least && paragraph.role != model::Role::ListItem) {
        parts += QStringLiteral("margin-left:") + points(paragraph.indentLeft);
    }
    if (std::abs(paragraph.firstLineIndent) > least && paragraph.lines.size() > 1) {
        parts += QStringLiteral("text-indent:") + points(paragraph.firstLineIndent);
    }
    return joined(parts);
}

QString cellStyle(const model::Cell &cell)
{
    QStringList parts;
    if (!cell.paragraphs.empty()) {
        parts += alignment(cell.paragraphs.front().alignment);
    }
    if (cell.background) {
        parts += QStringLiteral("background:") + colour(*cell.background);
    }
    const bool alike = cell.left.width > 0 && cell.left.width == cell.right.width &&
                       cell.left.width == cell.top.width && cell.left.width == cell.bottom.width &&
                       cell.left.colour == cell.top.colour && cell.left.colour == cell.right.colour &&
                       cell.left.colour == cell.bottom.colour;
    if (alike) {
        parts +=
            QStringLiteral("border:%1 solid %2").arg(points(std::max(0.5, cell.left.width)), colour(cell.left.colour));
    } else {
        parts += border("left", cell.left);
        parts += border("top", cell.top);
        parts += border("right", cell.right);
        parts += border("bottom", cell.bottom);
    }
    return joined(parts);
}

QString linkAddress(const QString &link)
{
    const QString page = QStringLiteral("#page=");
    return link.startsWith(page) ? QStringLiteral("#page-") + link.mid(page.size()) : link;
}

bool isListing(const model::Paragraph &paragraph)
{
    return std::any_of(paragraph.runs.begin(), paragraph.runs.end(), [](const model::Run &run) {
        return run.text.contains(QLatin1Char('\n'));
    });
}

} // namespace quorra
