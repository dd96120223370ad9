// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_marks.h"

#include <QSet>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

constexpr qsizetype maxNameLength = 40; // characters; of bookmarks in Word

QString pageBookmark(int number)
{
    return u"page%1"_s.arg(number);
}

/// Returns the text as the name of a bookmark, which begins with a letter and has no spaces.
QString bookmarkName(const QString &text)
{
    QString name;
    for (const QChar character : text) {
        if (character.isLetterOrNumber()) {
            name += character;
        } else if (!name.isEmpty() && !name.endsWith(u'_')) {
            name += u'_';
        }
    }
    if (name.isEmpty() || !name.front().isLetter()) {
        name.prepend("section_"_L1);
    }
    name.truncate(maxNameLength);
    return name.endsWith(u'_') ? name.chopped(1) : name;
}

QString uniqueName(const QString &name, QSet<QString> &taken)
{
    QString unique = name;
    for (int number = 2; taken.contains(unique.toLower()); ++number) {
        const QString suffix = u'_' + QString::number(number);
        unique = name.left(maxNameLength - suffix.size()) + suffix;
    }
    taken.insert(unique.toLower());
    return unique;
}

} // namespace

std::vector<OutlineBookmark> outlineBookmarks(const model::Document &document)
{
    QSet<QString> taken;
    for (const model::Page &page : document.pages) {
        taken.insert(pageBookmark(page.number));
    }
    std::vector<OutlineBookmark> bookmarks;
    for (const model::OutlineEntry &entry : document.facts.outline) {
        const auto page = std::find_if(document.pages.begin(), document.pages.end(), [&entry](const auto &each) {
            return each.number == entry.page;
        });
        if (page != document.pages.end()) {
            bookmarks.push_back({uniqueName(bookmarkName(entry.title), taken), entry.page, entry.top * page->height});
        }
    }
    return bookmarks;
}

Marks pageMarks(const model::Page &page)
{
    return {{pageBookmark(page.number)}, {}};
}

} // namespace quorra::office
