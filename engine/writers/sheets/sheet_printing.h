// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "odf/odf_styles.h"

#include <QString>
#include <QXmlStreamWriter>

#include <map>

namespace quorra::office {

/// How sheets are printed: upright or across as their page is, and no wider than the paper. Without that the last
/// columns would come out on sheets of paper of their own.
class SheetPrinting
{
public:
    /// Masters takes the master pages (the inside of office:master-styles).
    explicit SheetPrinting(QXmlStreamWriter &masters) : m_masters(masters) {}

    /// The name of the style for the sheet of a page of this size in points. The paper is the usual one of the two
    /// that the page's shorter side is nearer to.
    QString sheetStyle(StyleTable &styles, double width, double height);

private:
    QXmlStreamWriter &m_masters;
    std::map<QString, QString> m_names; // by master page
};

} // namespace quorra::office
