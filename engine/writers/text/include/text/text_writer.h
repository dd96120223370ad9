// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QString>

namespace quorra {

/// Returns a page as plain text in reading order, with the lines of the page and tables aligned with spaces.
/// An empty line separates paragraphs, but not the entries of a list or a table of contents, or lines at even
/// distances. Ends with a line break unless the page is empty.
QString pageAsText(const model::Page &page);

/// Returns the table as lines of text with aligned columns.
QString tableAsText(const model::Table &table);

} // namespace quorra
