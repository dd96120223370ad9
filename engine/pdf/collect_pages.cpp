// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/pdf/collect_pages.h"

#include "engine/platform/page_pool.h"

namespace quorra {

std::vector<model::RawPage> collectPages(const Job &job, DocumentCopies &copies, Collect what)
{
    std::vector<model::RawPage> pages(static_cast<std::size_t>(job.pageCount()));
    const auto collect = [&](const PageSource &next) {
        const DocumentCopies::Loan document = copies.borrow();
        PageCollector collector(*document, what);
        while (const int position = next()) {
            pages[static_cast<std::size_t>(position) - 1] = collector.collect(job.firstPage + position - 1);
        }
    };
    runPool(poolSize(job.pageCount()), job.pageCount(), collect);
    return pages;
}

} // namespace quorra
