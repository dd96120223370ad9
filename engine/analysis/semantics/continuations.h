// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

/// Marks paragraphs that go on from one column or page to the next.
void markContinuations(Document &document);

} // namespace quorra::model
