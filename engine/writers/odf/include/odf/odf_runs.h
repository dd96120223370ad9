// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/xml_element.h"
#include "document/text.h"
#include "odf/odf_styles.h"

#include <QString>
#include <QXmlStreamWriter>

#include <vector>

namespace quorra::office {

/// Where the inside of a document goes: the elements and the styles they use.
struct Sink
{
    QXmlStreamWriter &xml;
    StyleTable &styles;
};

/// model::linkAddress() for a text document, in which bookmarks "pageN" stand at the pages' starts.
QString bookmarkAddress(const QString &link);

/// Begins a link to this target, as bookmarkAddress() gives it.
[[nodiscard]] XmlElement beginLink(QXmlStreamWriter &xml, const QString &target);

/// Text inside a paragraph: runs of spaces, tabs and line breaks as the elements that keep them.
void writeText(QXmlStreamWriter &xml, const QString &text);

/// The runs as spans and links; runs in the style of the paragraph need no span. Links stay off where the
/// document kind has none (withLinks false).
void writeRuns(
    const Sink &sink, const std::vector<model::Run> &runs, const model::Style &paragraphStyle, bool withLinks = true);

} // namespace quorra::office
