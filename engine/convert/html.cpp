// SPDX-License-Identifier: GPL-3.0-or-later
#include "html.h"

#include "analysis/analysis.h"
#include "document/page_transform.h"
#include "html/html_writer.h"
#include "page_size.h"
#include "pdf/picture_prefetch.h"
#include "pdf/region_renderer.h"
#include "picture_rules.h"
#include "platform/output_device.h"
#include "platform/output_file.h"
#include "read_document.h"

namespace quorra {

namespace {

/// The file name without folder and extension; invalid UTF-8 is replaced.
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
    PdfFilePool pool(job.file);
    model::Document document = readDocument(job, pool, Collect::Everything);
    model::joinContinuations(document, true);
    const PictureQuality quality = embeddedQuality(job.options);
    PagePictureSource drawn(job.file, document, quality, model::DrawingWords::InPicture);
    PrefetchedPictures pictures(quality, pool, document, drawn);
    fitToOptions(document, job.options);
    model::reduceColours(document, job.options.colourDepth);
    OutputDevice device(file);
    writeHtml(device, document, pictures, {xhtml, titleOf(job.options.inputPath)});
    file.commit();
}

void convertToHtml(const Job &job)
{
    convertToMarkup(job, false);
}

} // namespace quorra
