// SPDX-License-Identifier: GPL-3.0-or-later
#include "word_columns.h"

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

constexpr double unitsPerPoint = 20; // of relative column widths, which are whole numbers

} // namespace

bool canHaveColumns(const model::Section &section)
{
    return section.columns.size() > 1 && section.columns.front().left <= section.columns.back().left;
}

XmlElement
beginColumns(const Sink &sink, const model::Page &page, const FlowSection &planned, const Margins &margins, int number)
{
    const model::Section &section = *planned.section;
    Element columns{"style:columns"_L1, {{"fo:column-count"_L1, QString::number(section.columns.size())}}};
    double from = planned.left;
    for (std::size_t i = 0; i < section.columns.size(); ++i) {
        const Box &column = section.columns[i];
        const bool isLast = i + 1 == section.columns.size();
        const double left = i == 0 ? planned.left : column.left;
        const double right = isLast ? planned.right : column.right;
        const double to = isLast ? right : (right + section.columns[i + 1].left) / 2;
        columns.children.push_back(
            {"style:column"_L1,
             {{"style:rel-width"_L1, QString::number(std::max(1L, std::lround(unitsPerPoint * (to - from)))) + u'*'},
              {"fo:start-indent"_L1, pt(left - from)},
              {"fo:end-indent"_L1, pt(to - right)}}});
        from = to;
    }
    const QString style = sink.styles.name(
        {"style:style"_L1,
         {{"style:family"_L1, u"section"_s}},
         {{"style:section-properties"_L1,
           {{"fo:margin-left"_L1, pt(planned.left - margins.left)},
            {"fo:margin-right"_L1, pt(page.width - margins.right - planned.right)}},
           {columns}}}});
    XmlElement element(sink.xml, "text:section"_L1);
    sink.xml.writeAttribute("text:style-name"_L1, style);
    sink.xml.writeAttribute("text:name"_L1, u"Columns %1"_s.arg(number));
    return element;
}

} // namespace quorra::office
