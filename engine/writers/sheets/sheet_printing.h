// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "odf/odf_styles.h"

#include <QString>
#include <QXmlStreamWriter>

#include <set>

namespace quorra::office {

/// The print settings of sheets: portrait or landscape like their page, and scaled to the width of the paper, so that
/// the last columns are not printed on separate pages.
class SheetPrinting
{
public:
    /// `masters` writes the content of office:master-styles.
    explicit SheetPrinting(QXmlStreamWriter &masters) : m_masters(masters) {}

    /// Returns the name of the style for the sheet of a page of this size in points. The paper is A4 or Letter,
    /// whichever has the more similar width.
    QString sheetStyle(StyleTable &styles, double width, double height, bool rightToLeft);

private:
    QXmlStreamWriter &m_masters;
    std::set<QString> m_masterNames;
};

} // namespace quorra::office
