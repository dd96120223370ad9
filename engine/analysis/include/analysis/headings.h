// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

/// Finds the headings of a document from buildDocument() again by the outline of its file, if Document::facts has one
/// that agrees with the pages. Entries that lead to lines of their pages make them headings, and tell their levels.
void useOutline(Document &document);

} // namespace quorra::model
