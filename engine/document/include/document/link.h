// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QString>

namespace quorra::model {

/// Whether the scheme of the address is safe to follow: web, file transfer and mail. Others might start programs or
/// open files on the machine of the reader.
bool isSafeAddress(const QString &address);

/// The value of Word::link and RawWord::link for a page of the same document: "#page=N", numbered from 1.
QString pageLink(int page);

/// The address to write for a Word::link: a safe address without characters that XML forbids; for a page, the prefix
/// and its number. Empty for an unsafe address or an invalid page number.
QString linkAddress(const QString &link, QLatin1String pagePrefix);

} // namespace quorra::model
