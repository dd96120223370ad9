// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <string>

class Object;

namespace quorra {

/// Decodes a text string of a PDF file: UTF-16 or UTF-8 if it begins with a byte order mark, else PDFDocEncoding.
/// Language escapes and control characters other than line breaks and tabs are removed, as are spaces at both ends.
QString textString(const std::string &bytes);

/// The same for an object; empty for one that is no string.
QString textString(const Object &object);

/// Returns the language tag in its usual spelling; empty for what is none.
QString languageTag(const QString &text);

} // namespace quorra
