// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/options.h"

namespace quorra {

/// Pages from 1, both included.
struct PageRange
{
    int first = 1;
    int last = 1;
};

/// The pages to convert of a document with `pageCount` pages. A last page past the end means the end. Throws
/// Failure(Usage) where nothing is left: first after last, or first past the end.
PageRange pageRange(const Options &options, int pageCount);

} // namespace quorra
