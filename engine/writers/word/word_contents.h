// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/xml_element.h"

#include <QXmlStreamWriter>

namespace quorra::office {

/// An open table of contents: a field around its entries, which word processors fill anew from the headings when asked
/// to. The entries are the paragraphs that are written while it is open.
class ContentsField
{
public:
    /// The number makes its name unique; `levels` is how many levels of headings it lists.
    ContentsField(QXmlStreamWriter &xml, int number, int levels);

private:
    XmlElement m_field;
    XmlElement m_body;
};

} // namespace quorra::office
