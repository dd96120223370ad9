// SPDX-License-Identifier: GPL-3.0-or-later
#include "read_document.h"

#include "analysis/analysis.h"
#include "analysis/headings.h"
#include "analysis/languages.h"
#include "pdf/file_facts.h"
#include "pdf/page_reading.h"
#include "pdf/structure.h"
#include "platform/worker_pool.h"

namespace quorra {

model::Document readDocument(const Job &job, PdfFilePool &pool, Collect what)
{
    const Structure structure = readStructure(*pool.borrow(), job.firstPage, job.pageCount());
    model::Document document = model::buildDocument(
        collectPages(pool, job.firstPage, job.pageCount(), what, &structure), forEachPage, structure.tree);
    if (what == Collect::Everything) {
        document.facts = readFileFacts(*pool.borrow());
        useOutline(document);
        findLanguages(document);
    }
    return document;
}

} // namespace quorra
