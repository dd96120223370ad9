// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

/// Sets the languages of the paragraphs of a document from buildDocument() that are in another one than the document
/// (Paragraph::language): by their text where it is clear, otherwise by the file's tags. Document::facts must be set.
void findLanguages(Document &document);

} // namespace quorra::model
