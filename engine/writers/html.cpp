// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/writers/html.h"

#include "engine/model/build.h"
#include "engine/office/page_transform.h"
#include "engine/pdf/ahead_pictures.h"
#include "engine/pdf/collect_pages.h"
#include "engine/pdf/collector_pictures.h"
#include "engine/platform/output_file.h"
#include "engine/platform/page_pool.h"
#include "engine/writers/html_writer.h"
#include "engine/writers/output_device.h"

namespace quorra {

namespace {

// The file's name without folder and extension; bytes that are no UTF-8 are replaced.
QString titleOf(const std::string &path)
{
    const QString name = QString::fromStdString(path.substr(path.rfind('/') + 1));
    const auto dot = name.lastIndexOf(QLatin1Char('.'));
    return dot > 0 ? name.left(dot) : name;
}

} // namespace

void convertToMarkup(const Job &job, bool xhtml)
{
    OutputFile file(job.options.outputPath);
    DocumentCopies copies(job);
    model::Document document = model::buildDocument(collectPages(job, copies, Collect::Everything), forEachPage);
    model::joinContinuations(document, true);
    PagePictureSource drawn(
        job.document, job.options.colourDepth, job.options.horizontalResolution(EmbeddedResolution),
        job.options.verticalResolution(EmbeddedResolution));
    drawn.expect(document);
    AheadPictures ahead(job, copies, document, drawn);
    office::MovedPictures pictures(ahead);
    office::fitToOptions(document, job.options, pictures);
    office::reduceColours(document, job.options.colourDepth);
    OutputDevice device(file);
    writeHtml(device, document, pictures, {xhtml, titleOf(job.options.inputPath)});
    file.commit();
}

void convertToHtml(const Job &job)
{
    convertToMarkup(job, false);
}

} // namespace quorra
