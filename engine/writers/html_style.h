// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/model/document.h"

#include <QString>

namespace quorra {

/// The look of most of the document's text.
model::Style usualStyle(const model::Document &document);

/// The style sheet of the whole file.
QString styleSheet(const model::Document &document, const model::Style &usual);

/// What differs in a run from the usual look, as style declarations; empty for nothing. Bold and italic are elements.
QString runStyle(const model::Style &style, const model::Style &usual, bool heading);

QString paragraphStyle(const model::Paragraph &paragraph);
QString cellStyle(const model::Cell &cell);

/// The address for a link of a run: places in the document are the pages' elements.
QString linkAddress(const QString &link);

/// Whether the paragraph's line ends are meant.
bool isListing(const model::Paragraph &paragraph);

} // namespace quorra
