// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/cli/failure.h"
#include "engine/cli/naming.h"
#include "engine/cli/paper_size.h"
#include "engine/convert.h"
#include "engine/pdf/document_handles.h"
#include "engine/platform/output_file.h"
#include "engine/platform/page_time.h"

#include <PSOutputDev.h>

#include <cmath>
#include <exception>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

namespace quorra {

namespace {

constexpr double PointsPerInch = 72;
constexpr int RasterResolution = 300;
constexpr int SizeOfPage = -1;

/// Where the library's text goes. It writes from destructors too, where nothing may be thrown: a failure waits.
struct Sink
{
    OutputFile &file;
    std::exception_ptr failure{};

    static void take(void *sink, const char *text, std::size_t size)
    {
        auto *const self = static_cast<Sink *>(sink);
        if (self->failure)
            return;
        try {
            self->file.write({text, size});
        } catch (...) {
            self->failure = std::current_exception();
        }
    }
};

/// Appends the pages as one PostScript document.
void writePages(const Job &job, const std::vector<int> &pages, PSOutMode mode, const PaperSize &paper, OutputFile &file)
{
    const Options &options = job.options;
    PDFDoc *const doc = job.document.handles().doc.get();
    // The first level of the language knows no colour.
    const PSLevel level = options.colourDepth == ColourDepth::Colour ? psLevel2 : psLevel1;
    Sink sink{file};
    {
        PSOutputDev device(
            &Sink::take, &sink, nullptr, doc, pages, mode, paper.width, paper.height, false, false, 0, 0, 0, 0,
            psRasterizeWhenNeeded, false, nullptr, nullptr, level);
        if (!device.isOk())
            throw Failure(ExitStatus::CannotOpen, "the pages cannot be written as PostScript");
        device.setPSCenter(true);
        device.setPSExpandSmaller(paper.width != SizeOfPage);
        device.setPSShrinkLarger(true);
        device.setRasterResolution(options.horizontalResolution(RasterResolution));
        for (const int page : pages) {
            const PageTime time(page);
            doc->displayPage(&device, page, PointsPerInch, PointsPerInch, 0, false, true, true);
        }
    }
    if (sink.failure)
        std::rethrow_exception(sink.failure);
}

/// Wraps the page, itself an EPS document, into one that scales it to the paper.
void writeScaledEps(const Job &job, int page, const PaperSize &paper, OutputFile &file)
{
    PDFDoc &doc = *job.document.handles().doc;
    const PDFRectangle *const box = doc.getPage(page) ? doc.getPage(page)->getCropBox() : nullptr;
    const PageSize size = job.document.pageSize(page);
    const std::string width = std::to_string(paper.width);
    const std::string height = std::to_string(paper.height);
    file.write("%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 " + width + " " + height + "\n%%EndComments\n");
    file.write("save /showpage {} def\n");
    file.write(
        std::to_string(paper.width / size.width) + " " + std::to_string(paper.height / size.height) + " scale\n");
    if (box && job.document.rotation(page) == 0)
        file.write(
            std::to_string(-std::min(box->x1, box->x2)) + " " + std::to_string(-std::min(box->y1, box->y2)) +
            " translate\n");
    file.write("%%BeginDocument: page\n");
    writePages(job, {page}, psModeEPS, {SizeOfPage, SizeOfPage}, file);
    file.write("%%EndDocument\nrestore showpage\n%%EOF\n");
}

void writeEpsFile(const Job &job, int page)
{
    OutputFile file(pageFilePath(job.options, page - job.firstPage + 1, job.pageCount()));
    const PageSize size = job.document.pageSize(page);
    if (const std::optional<PaperSize> paper = paperSize(job.options, size.width, size.height))
        writeScaledEps(job, page, *paper, file);
    else
        writePages(job, {page}, psModeEPS, {SizeOfPage, SizeOfPage}, file);
    file.commit();
}

} // namespace

void convertToPostScript(const Job &job)
{
    if (outputExtension(job.options.outputPath) == ".eps") {
        for (int page = job.firstPage; page <= job.lastPage; ++page)
            writeEpsFile(job, page);
        return;
    }
    std::vector<int> pages(static_cast<std::size_t>(job.pageCount()));
    std::iota(pages.begin(), pages.end(), job.firstPage);
    const PageSize first = job.document.pageSize(job.firstPage);
    OutputFile file(job.options.outputPath);
    writePages(
        job, pages, psModePS,
        paperSize(job.options, first.width, first.height).value_or(PaperSize{SizeOfPage, SizeOfPage}), file);
    file.commit();
}

} // namespace quorra
