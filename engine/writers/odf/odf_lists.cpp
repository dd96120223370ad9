// SPDX-License-Identifier: GPL-3.0-or-later
#include "odf/odf_lists.h"

#include "base/xml_text.h"

#include <algorithm>
#include <cstdlib>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

struct Thresholds
{
    double levelIndent = 18; ///< points; between levels that the document does not show
};
constexpr Thresholds thresholds;

/// Returns the bullet; a common one for a character that looks different in each font.
QString bulletCharacter(const QString &mark)
{
    const bool isOfItsFont = mark.size() == 1 && mark[0].category() == QChar::Other_PrivateUse;
    return isOfItsFont ? u"\u2022"_s : mark;
}

/// Returns the level of the list that is shown and nearest to this one, which need not be.
int nearestLevel(const model::List &list, int level)
{
    int nearest = -1;
    for (int i = 0; i < model::maxListLevels; ++i) {
        const bool closer = nearest < 0 || std::abs(i - level) < std::abs(nearest - level);
        if (list.levels[static_cast<std::size_t>(i)] && closer) {
            nearest = i;
        }
    }
    return nearest;
}

Element levelStyle(const model::List &list, int level)
{
    const int shown = nearestLevel(list, level);
    const model::ListLevel &like = *list.levels[static_cast<std::size_t>(shown)];
    const model::Paragraph first = withHang(*like.first);
    const double left = std::max(0.0, first.indentLeft) + thresholds.levelIndent * std::max(0, level - shown);
    const Element position{
        "style:list-level-properties"_L1,
        {{"text:list-level-position-and-space-mode"_L1, u"label-alignment"_s}},
        {{"style:list-level-label-alignment"_L1,
          {{"text:label-followed-by"_L1, first.firstLineIndent < 0 ? u"listtab"_s : u"space"_s},
           {"text:list-tab-stop-position"_L1, pt(left)},
           {"fo:margin-left"_L1, pt(left)},
           {"fo:text-indent"_L1, pt(first.firstLineIndent)}}}}};
    const QString number = QString::number(level + 1);
    if (!like.number) {
        return {
            "text:list-level-style-bullet"_L1,
            {{"text:level"_L1, number}, {"text:bullet-char"_L1, bulletCharacter(like.first->listItem->mark)}},
            {position}};
    }
    const int start = level == shown ? like.number->value : 1;
    return {
        "text:list-level-style-number"_L1,
        {{"text:level"_L1, number},
         {"style:num-format"_L1, numberFormatName(like.number->format)},
         {"style:num-prefix"_L1, xmlText(like.number->before)},
         {"style:num-suffix"_L1, xmlText(like.number->after)},
         {"text:start-value"_L1, QString::number(start)}},
        {position}};
}

QString listName(const model::List &list)
{
    return u"list%1"_s.arg(list.id + 1);
}

/// Returns the name of the style of the list. All levels are defined, so that items can be moved to any. Each list has
/// a style of its own: in Word's older format, lists of one style are one list and count on.
QString listStyle(const Sink &sink, const model::List &list)
{
    Element style{"text:list-style"_L1, {{"style:display-name"_L1, listName(list)}}};
    for (int level = 0; level < model::maxListLevels; ++level) {
        style.children.push_back(levelStyle(list, level));
    }
    return sink.styles.name(style);
}

} // namespace

QString numberFormatName(model::NumberFormat format)
{
    switch (format) {
    case model::NumberFormat::Decimal:
        break;
    case model::NumberFormat::LowerLetter:
        return u"a"_s;
    case model::NumberFormat::UpperLetter:
        return u"A"_s;
    case model::NumberFormat::LowerRoman:
        return u"i"_s;
    case model::NumberFormat::UpperRoman:
        return u"I"_s;
    }
    return u"1"_s;
}

model::Paragraph withHang(const model::Paragraph &paragraph)
{
    model::Paragraph item = paragraph;
    const bool oneLine = item.lines.size() == 1 && item.lines.front().words.size() > 1;
    if (item.listItem && oneLine && !item.rightToLeft && item.firstLineIndent == 0) {
        const model::Line &line = item.lines.front();
        const double hang = std::max(0.0, line.words[1].box.left - line.words[0].box.left);
        item.indentLeft += hang;
        item.firstLineIndent = -hang;
    }
    return item;
}

ListPosition::ListPosition(const Sink &sink, const model::ListPlace *place)
{
    if (!place) {
        return;
    }
    for (int level = 0; level <= place->level; ++level) {
        m_open.emplace(sink.xml, "text:list"_L1);
        if (level == 0) {
            sink.xml.writeAttribute("text:style-name"_L1, listStyle(sink, *place->list));
            const QLatin1String name = place->continues ? "text:continue-list"_L1 : "xml:id"_L1;
            sink.xml.writeAttribute(name, listName(*place->list));
        }
        m_open.emplace(sink.xml, "text:list-item"_L1);
    }
    if (place->restart) {
        sink.xml.writeAttribute("text:start-value"_L1, QString::number(*place->restart));
    }
}

ListPosition::~ListPosition()
{
    while (!m_open.empty()) {
        m_open.pop();
    }
}

} // namespace quorra::office
