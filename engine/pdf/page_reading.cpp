// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/page_reading.h"

#include "platform/progress.h"
#include "platform/worker_pool.h"

namespace quorra {

std::vector<model::RawPage>
collectPages(PdfFilePool &pool, int firstPage, int pageCount, Collect what, const Structure *structure)
{
    std::vector<model::RawPage> pages(static_cast<std::size_t>(pageCount));
    const auto collect = [&](const PageSource &next) {
        const PdfFilePool::Loan file = pool.borrow();
        PageCollector collector(*file, what, structure);
        while (const int position = next()) {
            pages[static_cast<std::size_t>(position) - 1] = collector.collect(firstPage + position - 1);
        }
    };
    progress::beginStep("Reading");
    runPool(poolSize(pageCount), pageCount, collect);
    return pages;
}

} // namespace quorra
