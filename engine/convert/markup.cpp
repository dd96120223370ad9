// SPDX-License-Identifier: GPL-3.0-or-later
#include "markup.h"

#include "analysis/analysis.h"
#include "document/page_transform.h"
#include "page_size.h"
#include "pdf/picture_prefetch.h"
#include "pdf/region_renderer.h"
#include "picture_rules.h"
#include "platform/output_device.h"
#include "platform/output_file.h"
#include "read_document.h"

namespace quorra {

void writeMarkup(const Job &job, Continuations continuations, const MarkupWriter &write)
{
    OutputFile file(job.options.outputPath);
    PdfFilePool pool(job.file);
    model::Document document = readDocument(job, pool, Collect::Everything);
    if (continuations == Continuations::Joined) {
        model::joinContinuations(document, true);
    }
    const PictureQuality quality = embeddedQuality(job.options);
    PagePictureSource drawn(job.file, document, quality, model::DrawingWords::InPicture);
    PrefetchedPictures pictures(quality, pool, document, drawn);
    fitToOptions(document, job.options);
    model::reduceColours(document, job.options.colourDepth);
    OutputDevice device(file);
    write(device, document, pictures);
    file.commit();
}

} // namespace quorra
