// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/raw_page.h"
#include "document/tags.h"

#include <functional>
#include <vector>

namespace quorra::model {

/// Calls the function for each page, numbered from 0, in any order, several at a time if it likes.
using PageLoop = std::function<void(int count, const std::function<void(int)> &work)>;

/// The loop of one thread.
void onePageAfterAnother(int count, const std::function<void(int)> &work);

/// Builds the document from the pages of one range, in their order: tables, columns, reading order, paragraphs, roles.
/// Never fails; an empty page gives a page without blocks. Takes the raw pages by value because it moves their words.
/// The pages are built on their own, in the given loop; the document is the same whatever the loop.
/// What the tags say is used where it agrees with the pages; without tags everything comes from the pages.
Document
buildDocument(std::vector<RawPage> pages, const PageLoop &forEach = onePageAfterAnother, const TagTree &tags = {});

/// For writers of flowing text: takes paragraphs together that a column break cut inside a sentence (and, with
/// overPages, a page break). The lines of the joined paragraphs stay in order, the box is the first part's.
void joinContinuations(Document &document, bool overPages);

} // namespace quorra::model
