// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "odf/odf_paragraphs.h"

#include <QString>

#include <vector>

namespace quorra::office {

/// The bookmark of an entry of the outline.
struct OutlineBookmark
{
    QString name;   ///< letters, digits and underscores, as word processors require; unique in the document
    int page = 1;   ///< number in the file
    double top = 0; ///< of its target on the page, in points
};

/// Returns the bookmarks of the entries whose target is on a page of the document.
std::vector<OutlineBookmark> outlineBookmarks(const model::Document &document);

/// Returns the marks at the beginning of a page: the target of links to the page.
Marks pageMarks(const model::Page &page);

} // namespace quorra::office
