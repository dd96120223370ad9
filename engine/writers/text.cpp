// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/convert.h"
#include "engine/model/build.h"
#include "engine/pdf/collect_pages.h"
#include "engine/platform/output_file.h"
#include "engine/platform/page_pool.h"
#include "engine/writers/text_writer.h"

namespace quorra {

void convertToText(const Job &job)
{
    OutputFile file(job.options.outputPath);
    DocumentCopies copies(job);
    const model::Document document =
        model::buildDocument(collectPages(job, copies, Collect::TextAndRules), forEachPage);
    for (const model::Page &page : document.pages) {
        const QByteArray text = pageAsText(page).toUtf8();
        file.write({text.constData(), static_cast<std::size_t>(text.size())});
        file.write("\f"); // ends each page, the last one too
    }
    file.commit();
}

} // namespace quorra
