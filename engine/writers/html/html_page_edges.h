// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QHash>
#include <QString>

#include <vector>

namespace quorra {

/// A paragraph of a page header or footer.
struct HtmlEdgePart
{
    const model::Page *page;
    const model::Paragraph *paragraph;
};

/// The page numbers in page headers and footers: separate texts of digits or Roman numerals, possibly between dashes,
/// that are not the same on most pages (as a year is).
class HtmlPageNumbers
{
public:
    explicit HtmlPageNumbers(const model::Document &document);

    bool isPageNumber(const QString &text) const;

    /// Returns the number of the page: the one printed on it, else the label in the file, else its number in the file.
    QString of(const model::Page &page) const;

private:
    QHash<QString, std::size_t> m_counts;
    std::size_t m_pages;
};

/// The page headers or the page footers of a document without repetitions. Texts that differ in numbers only are
/// repetitions. In a document of several pages, paragraphs that are nothing but a page number are left out: the marks
/// between the pages show it.
struct HtmlPageEdge
{
    std::vector<HtmlEdgePart> ofDocument; ///< those of many pages
    /// Those of few pages, such as the titles of chapters, with the first page that has them.
    QHash<const model::Page *, std::vector<const model::Paragraph *>> ofPages;
};

HtmlPageEdge htmlPageHeaders(const model::Document &document, const HtmlPageNumbers &numbers);
HtmlPageEdge htmlPageFooters(const model::Document &document, const HtmlPageNumbers &numbers);

/// Returns the parts of a page header that are separate texts, such as a title and a page number.
std::vector<model::Line> pageHeaderParts(const model::Paragraph &header);

} // namespace quorra
