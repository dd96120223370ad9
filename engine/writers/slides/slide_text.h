// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "odf/odf_paragraphs.h"
#include "odf/odf_runs.h"
#include "slide_frame.h"

#include <QString>

namespace quorra::office {

/// Returns the target of a link on a slide: safe addresses unchanged, "#page=N" as the name of the slide. Empty for an
/// unsafe address.
QString slideTarget(const QString &link);

/// Removes the links to pages that are not in the document.
void dropDeadLinks(model::Document &document);

/// Return the distance of the paragraph's lines on a slide, and the distance from the top of the first line to its
/// baseline, in points.
double slideLeading(const model::Paragraph &paragraph);
double slideRise(const model::Paragraph &paragraph);

/// Writes the paragraph with these runs as its text into an open frame or cell, to whose edges its indents refer.
/// `spacing` is the letter spacing in points.
void writeSlideParagraph(
    const Sink &sink, const model::Paragraph &paragraph, const std::vector<model::Run> &runs, double spacing,
    bool withLinks);

/// Writes a paragraph without text, of almost no height.
void writeEmptySlideParagraph(const Sink &sink, const model::Paragraph &paragraph);

/// Writes the paragraph into a text box of its own at its position and with its rotation. With `labels`, each group of
/// words gets a text box.
void writeSlideText(const Sink &sink, const model::Page &page, const model::Paragraph &paragraph, bool labels);

} // namespace quorra::office
