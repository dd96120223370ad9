// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "odf/odf_paragraphs.h"

#include <QString>

#include <vector>

namespace quorra::office {

/// The margins of a page, in points.
struct Margins
{
    double left = 72;
    double top = 72;
    double right = 72;
    double bottom = 72;

    bool operator==(const Margins &) const = default;
};

/// Returns the margins of each page. Pages of the same size have the same margins, so that the layout does not change
/// from page to page; scanned pages have none.
std::vector<Margins> pageMargins(const model::Document &document);

/// Returns the y coordinate where the text area of the page ends: below the bottom margin, because the text may be
/// longer in other fonts, but above the footer (empty if the page has none, or is written without).
double textEnd(const model::Page &page, const Margins &margins, const std::vector<model::Paragraph> &footer);

struct PageStyle;

/// The master pages of a text document, one for each combination of size, margins, headers and footers.
class MasterPages
{
public:
    explicit MasterPages(const Sink &masters) : m_masters(masters) {}

    /// Returns the name of the master page for this page without header and footer.
    QString name(const model::Page &page, const Margins &margins);

    /// Returns the name of the master page for pages of this style.
    QString name(const PageStyle &style, const Margins &margins);

private:
    QString name(const Element &layout, const QString &content);

    Sink m_masters;
    std::vector<std::pair<QString, QString>> m_known; // definition and name
};

} // namespace quorra::office
