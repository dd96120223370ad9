// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <string>
#include <vector>

namespace quorra {

/// Returns the names of the recognition data for a document, joined by "+": those for the language tag that the file
/// states ("de-AT"), or else for the user's locale ("de_AT.UTF-8"), and English. Only installed data are named; empty
/// if there are none for either language.
std::string
recognitionLanguages(const QString &stated, const QString &locale, const std::vector<std::string> &installed);

/// Returns the locale of the user's messages as the environment has it; empty for none.
QString userLocale();

} // namespace quorra
