// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide_lists.h"

#include "base/colour.h"
#include "document/list_number.h"
#include "document/list_plan.h"
#include "document/text.h"
#include "odf/odf_lists.h"
#include "odf/odf_paragraphs.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

struct Thresholds
{
    double maxHang = 8;       ///< em; between a mark and its text: marks farther off are columns of their own
    double minMarkSize = 25;  ///< per cent of the text's size; what presentation programs allow
    double maxMarkSize = 400; ///< likewise
};
constexpr Thresholds thresholds;

/// Of the number of the last item at a level.
struct LastNumber
{
    std::optional<model::ListNumber> number;
    int start = 1; ///< of its list
};

/// Whether presentation programs can write the number: "1.", "1)", "(1)" or "1".
bool canBeCounted(const model::ListNumber &number)
{
    const bool inParentheses = number.before == "("_L1 && number.after == ")"_L1;
    const bool plain = number.before.isEmpty() && number.after.isEmpty();
    const bool closed = number.before.isEmpty() && (number.after == "."_L1 || number.after == ")"_L1);
    const bool decimal = number.format == model::NumberFormat::Decimal;
    return number.value > 0 && (inParentheses || closed || (plain && decimal));
}

/// Returns the distance from the mark to the text; nothing if the text does not hang beside the mark.
std::optional<double> hangOf(const model::Paragraph &paragraph)
{
    if (paragraph.lines.empty() || paragraph.lines.front().words.size() < 2 || paragraph.rightToLeft) {
        return {};
    }
    const std::vector<model::Word> &words = paragraph.lines.front().words;
    const double hang = paragraph.lines.size() > 1 ? -paragraph.firstLineIndent : words[1].box.left - words[0].box.left;
    const bool isMark = words[0].text == paragraph.listItem->mark;
    const bool hangs = hang > 0 && hang < thresholds.maxHang * model::largestSize(paragraph);
    return isMark && hangs ? std::optional(hang) : std::nullopt;
}

Element markLook(const model::Paragraph &paragraph, bool bullet)
{
    const model::Style &mark = *paragraph.lines.front().words.front().style;
    const double size = model::largestSize(paragraph);
    const double share = size > 0 && mark.size > 0 ? 100 * mark.size / size : 100;
    Element look{
        "style:text-properties"_L1,
        {{"fo:color"_L1, colourName(mark.colour)},
         {"fo:font-size"_L1,
          QString::number(std::lround(std::clamp(share, thresholds.minMarkSize, thresholds.maxMarkSize))) + u'%'}}};
    if (bullet) {
        const bool ofItsFont = paragraph.listItem->mark.front().category() == QChar::Other_PrivateUse;
        look.attributes.emplace_back("fo:font-family"_L1, ofItsFont ? officeFamily(mark) : u"Arial"_s);
    }
    return look;
}

Element listStyle(Element level, Element look)
{
    level.children = {
        {"style:list-level-properties"_L1,
         {{"text:list-level-position-and-space-mode"_L1, u"label-alignment"_s}},
         {{"style:list-level-label-alignment"_L1, {{"text:label-followed-by"_L1, u"listtab"_s}}}}},
        std::move(look)};
    return {"text:list-style"_L1, {}, {std::move(level)}};
}

} // namespace

std::vector<std::optional<SlideList>> slideLists(const std::vector<model::Paragraph> &paragraphs)
{
    std::vector<std::optional<SlideList>> lists;
    std::vector<LastNumber> last(static_cast<std::size_t>(model::maxListLevels));
    for (const model::Paragraph &paragraph : paragraphs) {
        lists.emplace_back();
        const std::optional<double> hang = paragraph.listItem ? hangOf(paragraph) : std::nullopt;
        if (!hang) {
            std::fill(last.begin(), last.end(), LastNumber{});
            continue;
        }
        const model::ListItem &item = *paragraph.listItem;
        const auto level = static_cast<std::size_t>(std::clamp(item.level, 0, model::maxListLevels - 1));
        std::fill(last.begin() + static_cast<std::ptrdiff_t>(level) + 1, last.end(), LastNumber{});
        const QString levelName = QString::number(level + 1);
        const std::optional<model::ListNumber> number = model::listNumber(item.mark, last[level].number);
        if (number && canBeCounted(*number)) {
            const bool goesOn = last[level].number && model::continuesNumbers(*last[level].number, *number);
            last[level] = {number, goesOn ? last[level].start : number->value};
            lists.back() = SlideList{
                static_cast<int>(level) + 1,
                listStyle(
                    {"text:list-level-style-number"_L1,
                     {{"text:level"_L1, levelName},
                      {"style:num-format"_L1, numberFormatName(number->format)},
                      {"style:num-prefix"_L1, number->before},
                      {"style:num-suffix"_L1, number->after},
                      {"text:start-value"_L1, QString::number(last[level].start)}}},
                    markLook(paragraph, false)),
                *hang};
        } else if (model::isBullet(item)) {
            last[level] = {};
            lists.back() = SlideList{
                static_cast<int>(level) + 1,
                listStyle(
                    {"text:list-level-style-bullet"_L1,
                     {{"text:level"_L1, levelName}, {"text:bullet-char"_L1, item.mark}}},
                    markLook(paragraph, true)),
                *hang};
        }
    }
    return lists;
}

} // namespace quorra::office
