// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/model/document.h"
#include "engine/model/page.h"

#include <vector>

namespace quorra::model {

/// Builds the document from the pages of one range, in their order: tables, columns, reading order, paragraphs, roles.
/// Never fails; an empty page gives a page without blocks. Takes the raw pages by value because it moves their words.
Document buildDocument(std::vector<RawPage> pages);

/// For writers of flowing text: takes paragraphs together that a column break cut inside a sentence (and, with
/// overPages, a page break). The lines of the joined paragraphs stay in order, the box is the first part's.
void joinContinuations(Document &document, bool overPages);

/// The text of the runs, one after the other.
QString plainText(const std::vector<Run> &runs);

} // namespace quorra::model
