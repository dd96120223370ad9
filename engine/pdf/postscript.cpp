// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/postscript.h"

#include "base/failure.h"
#include "base/units.h"
#include "pdf_file_handles.h"
#include "platform/output_file.h"
#include "platform/page_time.h"
#include "platform/progress.h"

#include <PSOutputDev.h>

#include <cmath>
#include <exception>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

namespace quorra {

namespace {

constexpr int sizeOfPage = -1;
constexpr PaperSize ownSize{sizeOfPage, sizeOfPage};

/// Receives the library's output. It also writes in destructors, where exceptions are not allowed: a failure is kept
/// and rethrown later.
struct Sink
{
    OutputFile &file;
    std::exception_ptr failure{};

    static void take(void *sink, const char *text, std::size_t size)
    {
        auto *const self = static_cast<Sink *>(sink);
        if (self->failure) {
            return;
        }
        try {
            self->file.write({text, size});
        } catch (...) {
            self->failure = std::current_exception();
        }
    }
};

/// Appends the pages as one PostScript document.
void writePages(
    PdfFile &pdf, const std::vector<int> &pages, PSOutMode mode, const PostScriptForm &form, const PaperSize &paper,
    OutputFile &file)
{
    PDFDoc *const doc = pdf.handles().doc.get();
    // PostScript Level 1 has no colour.
    const PSLevel level = form.colour ? psLevel2 : psLevel1;
    Sink sink{file};
    {
        PSOutputDev device(
            &Sink::take, &sink, nullptr, doc, pages, mode, paper.width, paper.height, false, false, 0, 0, 0, 0,
            psRasterizeWhenNeeded, false, nullptr, nullptr, level);
        if (!device.isOk()) {
            throw Failure(ExitStatus::CannotOpen, "the pages cannot be written as PostScript");
        }
        device.setPSCenter(true);
        device.setPSExpandSmaller(paper.width != sizeOfPage);
        device.setPSShrinkLarger(true);
        device.setRasterResolution(form.rasterResolution);
        for (const int page : pages) {
            const PageTime time(page);
            progress::showPage(page - pages.front() + 1, static_cast<int>(pages.size()));
            doc->displayPage(&device, page, pointsPerInch, pointsPerInch, 0, false, true, true);
        }
    }
    if (sink.failure) {
        std::rethrow_exception(sink.failure);
    }
}

/// Embeds the page, which is an EPS document, in one that scales it to the paper.
void writeScaledEps(PdfFile &pdf, int page, const PostScriptForm &form, const PaperSize &paper, OutputFile &file)
{
    PDFDoc &doc = *pdf.handles().doc;
    const PDFRectangle *const box = doc.getPage(page) ? doc.getPage(page)->getCropBox() : nullptr;
    const PageSize size = pdf.pageSize(page);
    const std::string width = std::to_string(paper.width);
    const std::string height = std::to_string(paper.height);
    file.write("%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 " + width + " " + height + "\n%%EndComments\n");
    file.write("save /showpage {} def\n");
    file.write(
        std::to_string(paper.width / size.width) + " " + std::to_string(paper.height / size.height) + " scale\n");
    if (box && pdf.rotation(page) == 0) {
        file.write(
            std::to_string(-std::min(box->x1, box->x2)) + " " + std::to_string(-std::min(box->y1, box->y2)) +
            " translate\n");
    }
    file.write("%%BeginDocument: page\n");
    writePages(pdf, {page}, psModeEPS, form, ownSize, file);
    file.write("%%EndDocument\nrestore showpage\n%%EOF\n");
}

} // namespace

void writePostScript(PdfFile &pdf, int firstPage, int lastPage, const PostScriptForm &form, OutputFile &file)
{
    std::vector<int> pages(static_cast<std::size_t>(lastPage - firstPage + 1));
    std::iota(pages.begin(), pages.end(), firstPage);
    writePages(pdf, pages, psModePS, form, form.paper.value_or(ownSize), file);
}

void writeEps(PdfFile &pdf, int page, const PostScriptForm &form, OutputFile &file)
{
    if (form.paper) {
        writeScaledEps(pdf, page, form, *form.paper, file);
    } else {
        writePages(pdf, {page}, psModeEPS, form, ownSize, file);
    }
}

} // namespace quorra
