// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QString>

namespace quorra {

/// Returns a page as plain text in reading order, with the lines of the page, an empty line between paragraphs, and
/// tables aligned with spaces. Ends with a line break unless the page is empty.
QString pageAsText(const model::Page &page);

/// Returns the table as lines of text with aligned columns.
QString tableAsText(const model::Table &table);

} // namespace quorra
