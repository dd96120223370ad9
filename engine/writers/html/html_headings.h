// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QHash>
#include <QString>

#include <vector>

namespace quorra {

/// The headings of a document as elements: exactly one of level 1, and no level left out on the way down.
class HtmlHeadings
{
public:
    struct Heading
    {
        int level = 0; ///< 1 to 6
        QString id;
        int page = 0; ///< its number
        QString text;
    };

    explicit HtmlHeadings(const model::Document &document);

    /// Returns nullptr for a paragraph that is no heading of the document. The paragraph is compared by its address.
    const Heading *find(const model::Paragraph &paragraph) const;

    /// Returns the text of the heading of level 1; empty if no heading of the document is its title.
    QString title() const { return m_title; }

    /// Returns the id of the heading on the page that has the letters of the title; empty if there is none.
    QString idOf(int page, const QString &title) const;

private:
    std::vector<Heading> m_headings;
    QHash<const model::Paragraph *, std::size_t> m_places;
    QString m_title;
};

} // namespace quorra
