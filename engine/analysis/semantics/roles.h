// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

/// Gives the paragraphs of the whole document their roles: headings by their size against the body text and one
/// another, captions, footnotes, list levels.
void assignRoles(Document &document);

/// Marks paragraphs that go on from one column or page to the next.
void markContinuations(Document &document);

} // namespace quorra::model
