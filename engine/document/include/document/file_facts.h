// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/geometry.h"

#include <QDateTime>
#include <QString>

#include <vector>

namespace quorra::model {

/// An entry of the outline of a file, which viewers show as bookmarks.
struct OutlineEntry
{
    QString title;
    int level = 0;  ///< 0 for the outermost entries; at most one more than the level of the entry before
    int page = 0;   ///< counted from 1 in the file; 0 for an entry that leads to none of its pages
    double top = 0; ///< of its target on the page: share of the page's height, from the top; 0 for the whole page
};

/// A comment that a reader of the file left on a page: a note, or a remark on text that is marked.
struct Comment
{
    Box box; ///< of the note or the marked text, on the page as shown
    QString author;
    QString text;   ///< never empty; may have several lines
    QDateTime date; ///< of its last change, in the time of its author; invalid if the file does not state it
};

/// What a file says about itself as a whole. Empty texts where it says nothing.
struct FileFacts
{
    QString language; ///< a language tag such as "en-GB"
    QString title;
    QString author;
    QString subject;
    QString keywords;
    std::vector<OutlineEntry> outline; ///< in the order in which viewers show it, inner entries after their outer one
};

} // namespace quorra::model
