// SPDX-License-Identifier: GPL-3.0-or-later
#include "number_format.h"

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

QString numberFormat(StyleTable &styles, const Number &number)
{
    const auto literal = [](const QString &text) { return Element{"number:text"_L1, {}, {}, text}; };
    const auto build = [&](bool negative) {
        Element format{number.percent ? "number:percentage-style"_L1 : "number:number-style"_L1};
        const QString decimals = QString::number(number.decimals);
        const QString before = (negative ? u"("_s : QString()) + number.prefix;
        const QString after = number.suffix + (number.percent ? u"%"_s : QString()) + (negative ? u")"_s : QString());
        if (!before.isEmpty()) {
            format.children.push_back(literal(before));
        }
        format.children.push_back(
            {"number:number"_L1,
             {{"number:decimal-places"_L1, decimals},
              {"number:min-decimal-places"_L1, decimals},
              {"number:min-integer-digits"_L1, u"1"_s},
              {"number:grouping"_L1, number.grouped ? u"true"_s : u"false"_s}}});
        if (!after.isEmpty()) {
            format.children.push_back(literal(after));
        }
        return format;
    };
    if (!number.parentheses) {
        return styles.name(build(false));
    }
    Element format = build(true);
    format.children.push_back(
        {"style:map"_L1,
         {{"style:condition"_L1, u"value()>=0"_s}, {"style:apply-style-name"_L1, styles.name(build(false))}}});
    return styles.name(format);
}

} // namespace quorra::office
