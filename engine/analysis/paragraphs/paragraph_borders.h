// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

/// Gives the paragraphs outside of tables, header and footer included, the lines just above and below them and the
/// colour of the area behind them. Of two paragraphs at one line the lower one gets it; the upper one only when nothing
/// follows in its column. Lines at a header or footer belong to that one. The text of the page is upright.
void findParagraphBorders(Page &page);

} // namespace quorra::model
