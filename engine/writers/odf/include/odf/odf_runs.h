// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
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

/// The look that most of the characters have; the default look without any.
model::Style mainStyle(const std::vector<model::Run> &runs);

/// The largest size of type in the runs, in points; 10 without any text.
double largestSize(const std::vector<model::Run> &runs);

/// The address as it may stand in an office document: web and mail addresses as they are, "#page=N" as the bookmark
/// "#pageN"; empty for anything else, which might start programs or open files.
QString linkTarget(const QString &link);

/// Text inside a paragraph: runs of blanks, tabs and line breaks as the elements that keep them.
void writeText(QXmlStreamWriter &xml, const QString &text);

/// Whether a run stands above or below the line.
enum class Rise { None, Above, Below };

/// The rise of each of the paragraph's runs, as its words show it.
std::vector<Rise> risesOf(const model::Paragraph &paragraph);

/// The runs as spans and links; runs that look like the paragraph itself need no span. Links stay off where the
/// document kind has none (withLinks false). Rises, where given, has one entry for each run.
void writeRuns(
    const Sink &sink, const std::vector<model::Run> &runs, const model::Style &paragraphStyle, bool withLinks = true,
    const std::vector<Rise> &rises = {});

} // namespace quorra::office
