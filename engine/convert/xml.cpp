// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/analysis.h"
#include "document/page_transform.h"
#include "html.h"
#include "page_size.h"
#include "pdf/page_reading.h"
#include "platform/output_device.h"
#include "platform/output_file.h"
#include "platform/worker_pool.h"
#include "xml/xml_writer.h"

namespace quorra {

void convertToXml(const Job &job)
{
    if (job.options.htmlFormat) {
        convertToMarkup(job, true);
        return;
    }
    OutputFile file(job.options.outputPath);
    DocumentCopies copies(job.document);
    model::Document document =
        model::buildDocument(collectPages(copies, job.firstPage, job.pageCount(), Collect::Everything), forEachPage);
    fitToOptions(document, job.options);
    model::reduceColours(document, job.options.colourDepth);
    OutputDevice device(file);
    writeXml(device, document);
    file.commit();
}

} // namespace quorra
