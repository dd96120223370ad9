// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/model/build.h"
#include "engine/office/page_transform.h"
#include "engine/pdf/collect_pages.h"
#include "engine/pdf/collector_pictures.h"
#include "engine/platform/output_file.h"
#include "engine/platform/page_pool.h"
#include "engine/writers/html.h"
#include "engine/writers/output_device.h"
#include "engine/writers/xml_writer.h"

namespace quorra {

void convertToXml(const Job &job)
{
    if (job.options.htmlFormat) {
        convertToMarkup(job, true);
        return;
    }
    OutputFile file(job.options.outputPath);
    DocumentCopies copies(job);
    model::Document document = model::buildDocument(collectPages(job, copies, Collect::Everything), forEachPage);
    PagePictureSource drawn(job.document, job.options.colourDepth, EmbeddedResolution, EmbeddedResolution);
    office::MovedPictures pictures(drawn);
    office::fitToOptions(document, job.options, pictures);
    office::reduceColours(document, job.options.colourDepth);
    OutputDevice device(file);
    writeXml(device, document);
    file.commit();
}

} // namespace quorra
