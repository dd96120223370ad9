// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QString>

namespace quorra {

/// One page as plain text: lines as on the page, in reading order, a blank line between paragraphs, tables with their
/// columns set by blanks. Ends with a line break unless the page is empty.
QString pageAsText(const model::Page &page);

/// A table's cells in columns; text of the last column is not cut.
QString tableAsText(const model::Table &table);

} // namespace quorra
