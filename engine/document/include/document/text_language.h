// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quorra::model {

/// Whether two language tags name the same language, whatever their countries and scripts.
bool isSameLanguage(const QString &a, const QString &b);

/// Returns the tag of the language in which the text clearly is: by its script, and by the frequent words of languages
/// in Latin script. Empty for names, numbers and short texts. What the file states (a language tag or empty) gives way
/// only to a text that is even clearer.
QString languageOfText(const QString &text, const QString &stated = {});

} // namespace quorra::model
