// SPDX-License-Identifier: GPL-3.0-or-later
#include "html_leaders.h"

#include <QStringList>

namespace quorra {

using model::Run;

std::vector<std::vector<Run>> tabbedParts(const std::vector<Run> &runs)
{
    std::vector<std::vector<Run>> parts(1);
    for (const Run &run : runs) {
        const QStringList texts = run.text.split(QLatin1Char('\t'));
        for (qsizetype i = 0; i < texts.size(); ++i) {
            if (i > 0) {
                parts.emplace_back();
            }
            if (!texts.at(i).isEmpty()) {
                parts.back().push_back(run);
                parts.back().back().text = texts.at(i);
            }
        }
    }
    return parts;
}

bool endsAtRightTab(const model::Paragraph &paragraph)
{
    return !paragraph.tabStops.empty() && paragraph.tabStops.back().alignment == model::Alignment::Right;
}

} // namespace quorra
