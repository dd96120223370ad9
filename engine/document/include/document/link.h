// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QString>

namespace quorra::model {

/// Whether a reader may follow the address safely, as told by its scheme: web, file transfer and mail. Others might
/// start programs or open files on the reader's own machine.
bool isSafeAddress(const QString &address);

/// The text by which Word::link and RawWord::link name a page of the same document: "#page=N", N from 1.
QString pageLink(int page);

/// The address that a written document holds for Word::link: a safe address as it is, without characters that XML
/// forbids; a page as the prefix and its number. Empty for an unsafe address, or a page that is no number from 1 on.
QString linkAddress(const QString &link, QLatin1String pagePrefix);

} // namespace quorra::model
