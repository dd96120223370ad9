// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet_printing.h"

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

struct Paper
{
    QLatin1String name;
    double narrow;
    double wide;
};

constexpr Paper a4{QLatin1String("A4"), 595.28, 841.89};
constexpr Paper letter{QLatin1String("Letter"), 612, 792};

} // namespace

QString SheetPrinting::sheetStyle(StyleTable &styles, double width, double height, bool rightToLeft)
{
    const bool across = width > height;
    const double side = std::min(width, height);
    const Paper &paper = std::abs(side - letter.narrow) < std::abs(side - a4.narrow) ? letter : a4;
    const QString master = paper.name + (across ? "Across"_L1 : "Upright"_L1);
    if (m_masterNames.insert(master).second) {
        const QString layout = styles.name(
            {"style:page-layout"_L1,
             {},
             {{"style:page-layout-properties"_L1,
               {{"fo:page-width"_L1, pt(across ? paper.wide : paper.narrow)},
                {"fo:page-height"_L1, pt(across ? paper.narrow : paper.wide)},
                {"fo:margin"_L1, u"36pt"_s},
                {"style:print-orientation"_L1, across ? u"landscape"_s : u"portrait"_s},
                {"style:scale-to-X"_L1, u"1"_s},
                {"style:scale-to-Y"_L1, u"0"_s}}}}});
        m_masters.writeEmptyElement("style:master-page"_L1);
        m_masters.writeAttribute("style:name"_L1, master);
        m_masters.writeAttribute("style:page-layout-name"_L1, layout);
    }
    return styles.name(
        {"style:style"_L1,
         {{"style:family"_L1, u"table"_s}, {"style:master-page-name"_L1, master}},
         {{"style:table-properties"_L1,
           {{"table:display"_L1, u"true"_s}, {"style:writing-mode"_L1, rightToLeft ? u"rl-tb"_s : u"lr-tb"_s}}}}});
}

} // namespace quorra::office
