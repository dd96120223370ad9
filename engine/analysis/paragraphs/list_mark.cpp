// SPDX-License-Identifier: GPL-3.0-or-later
#include "paragraphs/list_mark.h"

#include <QRegularExpression>

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

} // namespace quorra::model
