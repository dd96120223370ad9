// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/analysis.h"
#include "convert/convert.h"
#include "platform/output_file.h"
#include "read_document.h"
#include "text/text_writer.h"

namespace quorra {

void convertToText(const Job &job)
{
    OutputFile file(job.options.outputPath);
    PdfFilePool pool(job.file);
    model::Document document = readDocument(job, pool, Collect::TextAndRules);
    model::joinContinuations(document, false);
    for (const model::Page &page : document.pages) {
        const QByteArray text = pageAsText(page).toUtf8();
        file.write({text.constData(), static_cast<std::size_t>(text.size())});
        file.write("\f"); // after each page, including the last one
    }
    file.commit();
}

} // namespace quorra
