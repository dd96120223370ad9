// SPDX-License-Identifier: GPL-3.0-or-later
#include "number_format.h"

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

QString numberFormat(StyleTable &styles, const Number &number)
{
    const auto literal = [](const QString &text) { return Element{"number:text"_L1, {}, {}, text}; };
    const QString percent = number.percent ? u"%"_s : QString();
    const auto build = [&](const QString &before, const QString &after) {
        Element format{number.percent ? "number:percentage-style"_L1 : "number:number-style"_L1};
        const QString decimals = QString::number(number.decimals);
        const QString first = before + number.prefix;
        const QString last = percent + number.suffix + after;
        if (!first.isEmpty()) {
            format.children.push_back(literal(first));
        }
        Element digits{
            number.scientific ? "number:scientific-number"_L1 : "number:number"_L1,
            {{"number:decimal-places"_L1, decimals},
             {"number:min-decimal-places"_L1, decimals},
             {"number:min-integer-digits"_L1, u"1"_s}}};
        if (number.scientific) {
            digits.attributes.emplace_back("number:min-exponent-digits"_L1, u"2"_s);
        } else {
            digits.attributes.emplace_back("number:grouping"_L1, number.grouped ? u"true"_s : u"false"_s);
        }
        format.children.push_back(digits);
        if (!last.isEmpty()) {
            format.children.push_back(literal(last));
        }
        return format;
    };
    const Element positive = build({}, {});
    Element negative;
    switch (number.negative) {
    case NegativeForm::Minus:
        return styles.name(positive);
    case NegativeForm::Parentheses:
        negative = build(u"("_s, u")"_s);
        break;
    case NegativeForm::Triangle:
        negative = build(u"\u25b3"_s, {});
        break;
    case NegativeForm::TrailingMinus:
        negative = build({}, u"-"_s);
        break;
    }
    negative.children.push_back(
        {"style:map"_L1,
         {{"style:condition"_L1, u"value()>=0"_s}, {"style:apply-style-name"_L1, styles.name(positive)}}});
    return styles.name(negative);
}

} // namespace quorra::office
