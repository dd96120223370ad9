// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/postscript.h"
#include "cli/naming.h"
#include "convert/convert.h"
#include "paper_size.h"
#include "platform/output_file.h"
#include "platform/progress.h"

namespace quorra {

namespace {

constexpr int rasterResolution = 300; // dots per inch

PostScriptForm formOf(const Job &job, int page)
{
    const PageSize size = job.file.pageSize(page);
    return {
        job.options.colourDepth == ColourDepth::Colour, job.options.horizontalResolution(rasterResolution),
        paperSize(job.options, size.width, size.height)};
}

void writeEpsFile(const Job &job, int page)
{
    OutputFile file(pageFilePath(job.options, page - job.firstPage + 1, job.pageCount()));
    writeEps(job.file, page, formOf(job, page), file);
    file.commit();
}

} // namespace

void convertToPostScript(const Job &job)
{
    progress::beginStep("Writing");
    if (outputExtension(job.options.outputPath) == ".eps") {
        for (int page = job.firstPage; page <= job.lastPage; ++page) {
            progress::showPage(page - job.firstPage + 1, job.pageCount());
            writeEpsFile(job, page);
        }
        return;
    }
    OutputFile file(job.options.outputPath);
    writePostScript(job.file, job.firstPage, job.lastPage, formOf(job, job.firstPage), file);
    file.commit();
}

} // namespace quorra
