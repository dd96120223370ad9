// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/link.h"

#include "base/xml_text.h"

#include <algorithm>
#include <array>

namespace quorra::model {

namespace {

constexpr QLatin1String pageLinkPrefix("#page=");

} // namespace

bool isSafeAddress(const QString &address)
{
    static constexpr std::array<QLatin1String, 4> schemes = {
        QLatin1String("http://"), QLatin1String("https://"), QLatin1String("ftp://"), QLatin1String("mailto:")};
    return std::any_of(schemes.begin(), schemes.end(), [&](QLatin1String scheme) {
        return address.startsWith(scheme, Qt::CaseInsensitive);
    });
}

QString pageLink(int page)
{
    return pageLinkPrefix + QString::number(page);
}

QString linkAddress(const QString &link, QLatin1String pagePrefix)
{
    if (link.startsWith(pageLinkPrefix)) {
        bool isNumber = false;
        const int page = QStringView(link).mid(pageLinkPrefix.size()).toInt(&isNumber);
        return isNumber && page > 0 ? pagePrefix + QString::number(page) : QString();
    }
    return isSafeAddress(link) ? xmlText(link) : QString();
}

} // namespace quorra::model
