// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/page_transform.h"
#include "html.h"
#include "page_size.h"
#include "pdf/picture_prefetch.h"
#include "pdf/region_renderer.h"
#include "picture_rules.h"
#include "platform/output_device.h"
#include "platform/output_file.h"
#include "read_document.h"
#include "xml/xml_writer.h"

namespace quorra {

void convertToXml(const Job &job)
{
    if (job.options.htmlFormat) {
        convertToMarkup(job, true);
        return;
    }
    OutputFile file(job.options.outputPath);
    PdfFilePool pool(job.file);
    model::Document document = readDocument(job, pool, Collect::Everything);
    const PictureQuality quality = embeddedQuality(job.options);
    PagePictureSource drawn(job.file, document, quality, model::DrawingWords::InPicture);
    PrefetchedPictures pictures(quality, pool, document, drawn);
    fitToOptions(document, job.options);
    model::reduceColours(document, job.options.colourDepth);
    OutputDevice device(file);
    writeXml(device, document, &pictures);
    file.commit();
}

} // namespace quorra
