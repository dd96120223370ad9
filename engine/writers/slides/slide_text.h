// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "odf/odf_paragraphs.h"
#include "odf/odf_runs.h"
#include "slide_frame.h"

#include <QString>

namespace quorra::office {

/// Where a link of a slide leads: web and mail addresses as they are, "#page=N" as the slide of that name.
QString slideTarget(const QString &link);

/// Drops the links to pages that are not in the document: there is no slide for them.
void dropDeadLinks(model::Document &document);

/// The distance of the paragraph's lines on a slide, and how far above the first baseline the first line begins, in
/// points.
double slideLeading(const model::Paragraph &paragraph);
double slideRise(const model::Paragraph &paragraph);

/// Writes the paragraph, whose text the runs hold, into an open frame or cell. Its indents count from there. Spacing is
/// added after each letter.
void writeSlideParagraph(
    const Sink &sink, const model::Paragraph &paragraph, const std::vector<model::Run> &runs, double spacing,
    bool withLinks);

/// Writes a paragraph without text that takes next to no height.
void writeEmptySlideParagraph(const Sink &sink, const model::Paragraph &paragraph);

/// Writes the paragraph in a text box of its own at its place, turned as it is on the page. As labels, each word group
/// gets its own box.
void writeSlideText(const Sink &sink, const model::Page &page, const model::Paragraph &paragraph, bool labels);

} // namespace quorra::office
