// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/analysis.h"
#include "convert/convert.h"
#include "pdf/page_reading.h"
#include "platform/output_file.h"
#include "platform/worker_pool.h"
#include "text/text_writer.h"

namespace quorra {

void convertToText(const Job &job)
{
    OutputFile file(job.options.outputPath);
    DocumentCopies copies(job.document);
    const model::Document document =
        model::buildDocument(collectPages(copies, job.firstPage, job.pageCount(), Collect::TextAndRules), forEachPage);
    for (const model::Page &page : document.pages) {
        const QByteArray text = pageAsText(page).toUtf8();
        file.write({text.constData(), static_cast<std::size_t>(text.size())});
        file.write("\f"); // after each page, including the last one
    }
    file.commit();
}

} // namespace quorra
