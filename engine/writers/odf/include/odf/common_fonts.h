// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "odf/odf_styles.h"

namespace quorra::office {

/// Returns whether text of the style is output in a font with the widths of textWidth().
bool hasCommonWidths(const model::Style &style);

/// Replaces families that few machines have by the common one of their kind: word processors replace them anyway, often
/// by wider ones. Families whose text is in signs or scripts that the common ones lack remain.
void replaceRareFonts(model::Document &document);

/// Returns by how much characters must be narrower than in the fonts of the output to be as narrow as on the page, so
/// that lines are not longer than on the page.
WidthScales characterScales(const model::Document &document);

} // namespace quorra::office
