// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/model/document.h"

namespace quorra::model {

/// The direction (0, 90, 180, 270) in which most letters of the page run.
int mainRotation(const RawPage &page);

/// The page turned so that text of that rotation runs upright; words of other rotations keep their difference to it.
RawPage turnedUpright(RawPage page, int rotation);

/// Puts what was found on a page turned by turnedUpright() back to where it stands on the page as shown. Tables keep
/// their rows and columns; only their boxes, and all other boxes and baselines, are turned back.
void turnBack(Page &page, int rotation);
void turnBack(Paragraph &paragraph, int rotation, double uprightWidth, double uprightHeight);

} // namespace quorra::model
