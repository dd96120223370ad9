// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class GfxState;

namespace quorra {

/// Returns true if text drawn in this state is a watermark: large, pale or transparent letters that run neither along
/// nor across the page. It is a part of the page's background, not of its text. Small slanted text may be the label of
/// an axis, and dark text a headline.
bool isWatermark(GfxState *state);

} // namespace quorra
