// SPDX-License-Identifier: GPL-3.0-or-later
#include "text_lines/list_mark.h"

#include <QRegularExpression>

#include <algorithm>

namespace quorra::model {

bool isBullet(const QString &text)
{
    static const QString bullets = QString::fromUtf8("•‣◦▪▫■□●○⁃∙·➢➤►▶▸➔➜✓✔✗❖◆◇⬥★✦☞❍❐❑❒◻☐☑☒–—-*");
    return text.size() == 1 && bullets.contains(text.front());
}

bool isDashBullet(const QString &text)
{
    static const QString dashes = QStringLiteral("-–—*");
    return text.size() == 1 && dashes.contains(text.front());
}

bool isOrdinalMark(const QString &text)
{
    using listMarks::thresholds;
    if (text.size() < thresholds.minOrdinalLength || text.size() > thresholds.maxOrdinalLength) {
        return false;
    }
    static const QRegularExpression mark(QStringLiteral(
        "^(?:\\d{1,3}[.)]|\\(\\d{1,3}\\)|\\[\\d{1,3}\\]|[A-Za-z][.)]|\\([A-Za-z]\\)|\\(?[ivxIVX]{1,5}[.)])$"));
    return mark.match(text).hasMatch();
}

bool isSpacedMark(const QString &text)
{
    static const QRegularExpression mark(QStringLiteral("^(?:o|(?:\\d{1,3}|[A-Z])(?:\\.\\d{1,3}){1,5}[.)]?)$"));
    return mark.match(text).hasMatch();
}

bool isSpaced(const std::vector<double> &gaps, double size)
{
    using listMarks::thresholds;
    return !gaps.empty() && gaps.front() >= thresholds.minSpacedGap * size &&
           std::all_of(gaps.begin() + 1, gaps.end(), [&gaps](double gap) {
               return gaps.front() >= thresholds.minGapRatio * gap;
           });
}

} // namespace quorra::model
