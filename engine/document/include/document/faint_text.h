// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

/// Returns true if text of this colour cannot be read on white paper.
bool isFaint(Colour colour);

/// Returns whether the text is faint and has a picture or a dark area behind it, which is not its own shading.
bool losesBackground(const Page &page, const Paragraph &paragraph);

/// Makes faint text black where it would lose what is behind it: for outputs that write the shading of paragraphs and
/// the backgrounds of cells, but no other fills. Text on a figure that remains behind it (Figure::behindText) keeps its
/// colour if `figuresRemain`.
void darkenFaintText(Document &document, bool figuresRemain);

} // namespace quorra::model
