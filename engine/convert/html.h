// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "convert/convert.h"

namespace quorra {

/// Writes the job's pages as one HTML file, or as XHTML.
void convertToMarkup(const Job &job, bool xhtml);

} // namespace quorra
