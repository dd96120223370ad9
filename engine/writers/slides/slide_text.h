// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "odf/odf_paragraphs.h"
#include "odf/odf_runs.h"
#include "slide_frame.h"
#include "slide_lists.h"

#include <QString>

#include <optional>
#include <vector>

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

/// How a paragraph is written on a slide. Lengths in points.
struct SlideParagraph
{
    std::vector<model::Run> runs; ///< its text
    double spacing = 0;           ///< letter spacing
    double leading = 0;           ///< distance of its lines
    bool withLinks = true;
    std::optional<SlideList> list = {}; ///< whose mark it has; otherwise a mark is text
};

/// Writes the paragraph into an open frame or cell, to whose edges its indents refer.
void writeSlideParagraph(const Sink &sink, const model::Paragraph &paragraph, const SlideParagraph &text);

/// Writes a paragraph without text, of almost no height.
void writeEmptySlideParagraph(const Sink &sink, const model::Paragraph &paragraph);

/// Writes the text box at the position and with the rotation of its text.
void writeSlideBox(const Sink &sink, const model::Page &page, const SlideBox &box);

} // namespace quorra::office
