// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/page_range.h"

#include "base/failure.h"

#include <algorithm>

namespace quorra {

PageRange pageRange(const Options &options, int pageCount)
{
    const PageRange range{options.firstPage.value_or(1), std::min(options.lastPage.value_or(pageCount), pageCount)};
    if (range.first > pageCount) {
        throw Failure(
            ExitStatus::Usage, "the first page is " + std::to_string(range.first) + ", but the document has only " +
                                   std::to_string(pageCount));
    }
    if (range.first > range.last) {
        throw Failure(ExitStatus::Usage, "the first page is after the last page");
    }
    return range;
}

} // namespace quorra
