// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "odf/odf_paragraphs.h"

#include <QString>

#include <vector>

namespace quorra::office {

/// The blank space around a page's text, in points.
struct Margins
{
    double left = 72;
    double top = 72;
    double right = 72;
    double bottom = 72;

    bool operator==(const Margins &) const = default;
};

/// The margins of each page. Pages of one size share theirs, so that a document does not change its layout from page
/// to page; scanned pages have none.
std::vector<Margins> pageMargins(const model::Document &document);

/// The paragraphs of a page's header and footer; none where they are left out.
struct Heads
{
    std::vector<const model::Paragraph *> above;
    std::vector<const model::Paragraph *> below;
};
Heads headsOf(const model::Page &page);

/// Where the text of a page may end: beyond its last line, because other fonts run wider, but not in the footer.
double textEnd(const model::Page &page, const Margins &margins, const Heads &heads);

/// The master pages of a text document: each combination of size, margins, header and footer once.
class MasterPages
{
public:
    explicit MasterPages(const Sink &masters) : m_masters(masters) {}

    /// The master page for this page; with its headers and footers when withHeads is set.
    QString name(const model::Page &page, const Margins &margins, bool withHeads);

private:
    QString layout(const model::Page &page, const Margins &margins, const Heads &heads);

    Sink m_masters;
    std::vector<std::pair<QString, QString>> m_known; // its definition and its name
};

} // namespace quorra::office
