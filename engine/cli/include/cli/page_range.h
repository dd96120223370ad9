// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/options.h"

namespace quorra {

/// A range of pages, numbered from 1; both ends are included.
struct PageRange
{
    int first = 1;
    int last = 1;
};

/// Returns the pages to convert of a document with `pageCount` pages. A last page beyond the end is the end. Throws
/// Failure(Usage) if the range is empty: the first page is after the last page or beyond the end.
PageRange pageRange(const Options &options, int pageCount);

} // namespace quorra
