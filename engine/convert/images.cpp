// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/units.h"
#include "cli/naming.h"
#include "convert/convert.h"
#include "image/picture_writer.h"
#include "image/tiff_writer.h"
#include "pdf/page_renderer.h"
#include "pdf/pdf_file_pool.h"
#include "picture_rules.h"
#include "platform/progress.h"
#include "platform/worker_pool.h"

#include <algorithm>
#include <string>
#include <vector>

namespace quorra {

namespace {

/// Number of pixels in memory, shared by all threads; larger pictures are rendered in slices.
constexpr std::int64_t mostPixels = 16'000'000;

/// Those of the page, of a transparency group on it, and of the mask of the group.
constexpr std::uint64_t bitmapsInDrawing = 3;

/// What all pages have in common.
struct Plan
{
    const Job &job;
    std::string extension;
    ColourDepth depth;
    std::vector<PictureSize> sizes; ///< by position
    std::int64_t slicePixels = mostPixels;

    const PictureSize &size(int position) const { return sizes[static_cast<std::size_t>(position - 1)]; }
    int page(int position) const { return job.firstPage + position - 1; }
    bool isTiff() const { return extension == ".tif" || extension == ".tiff"; }
};

Plan makePlan(const Job &job)
{
    Plan plan{job, outputExtension(job.options.outputPath), ColourDepth::Colour, {}};
    plan.depth = pictureDepth(job.options, plan.extension);
    double requested = 0;
    double usual = 0;
    for (int page = job.firstPage; page <= job.lastPage; ++page) {
        const PageSize points = job.file.pageSize(page);
        const PictureSize size = pictureSize(job.options, page, points.width, points.height);
        requested += static_cast<double>(size.width) * size.height;
        usual += points.width * points.height * pictureResolution * pictureResolution / (pointsPerInch * pointsPerInch);
        plan.sizes.push_back(size);
    }
    limitTime(job, requested / usual);
    return plan;
}

/// Memory for rendering: slices whose total size is shared by all threads, or whole pages in black and white, and what
/// a writer buffers.
PoolMemory memoryFor(const Plan &plan)
{
    std::uint64_t largest = 0; // pixels
    for (const PictureSize &size : plan.sizes) {
        largest = std::max(largest, static_cast<std::uint64_t>(size.width) * static_cast<std::uint64_t>(size.height));
    }
    const bool mono = plan.depth == ColourDepth::Mono;
    const std::uint64_t pixelsAtATime = mono ? largest : std::min<std::uint64_t>(largest, mostPixels);
    const std::uint64_t drawn = bitmapsInDrawing * (mono ? pixelsAtATime / 8 : pixelsAtATime * rowBytes(plan.depth, 1));
    PoolMemory memory;
    (mono ? memory.perThread : memory.shared) = drawn;
    memory.perThread += largest * bytesKeptPerPixel(plan.extension, plan.depth);
    return memory;
}

int rowsPerSlice(const Plan &plan, const PictureSize &size)
{
    // Mono is rendered as a whole: it is small, and its dither pattern would restart in each slice.
    if (plan.depth == ColourDepth::Mono) {
        return size.height;
    }
    return static_cast<int>(std::clamp<std::int64_t>(plan.slicePixels / size.width, 1, size.height));
}

/// Renders the page in slices and passes each slice to `take`.
template <typename Take>
void drawSlices(const Plan &plan, PageRenderer &renderer, int position, Take take)
{
    const PictureSize &size = plan.size(position);
    const int rows = rowsPerSlice(plan, size);
    for (int top = 0; top < size.height; top += rows) {
        take(renderer.draw(plan.page(position), size, top, std::min(rows, size.height - top)));
    }
}

void writeTiffPage(const Plan &plan, PageRenderer &renderer, int position, TiffFile &tiff)
{
    tiff.beginPage({plan.size(position), plan.depth});
    drawSlices(plan, renderer, position, [&tiff](const Raster &slice) { tiff.addRows(slice); });
    tiff.endPage();
}

void writePageFile(const Plan &plan, PageRenderer &renderer, int position)
{
    OutputFile file(pageFilePath(plan.job.options, position, plan.job.pageCount()));
    if (plan.isTiff()) {
        TiffFile tiff(file, plan.job.options.compression.value_or(defaultTiffCompression), 1);
        writeTiffPage(plan, renderer, position, tiff);
    } else {
        const auto writer = makePictureWriter(plan.extension, file, {plan.size(position), plan.depth});
        drawSlices(plan, renderer, position, [&writer](const Raster &slice) { writer->addRows(slice); });
        writer->finish();
    }
    file.commit();
}

void writePageFiles(const Plan &plan, PdfFile &file, const PageSource &next)
{
    PageRenderer renderer(file, plan.depth);
    while (const int position = next()) {
        writePageFile(plan, renderer, position);
    }
}

void writeMultipage(const Plan &plan)
{
    PageRenderer renderer(plan.job.file, plan.depth);
    OutputFile file(pageFilePath(plan.job.options, 1, 1));
    const int count = plan.job.pageCount();
    {
        TiffFile tiff(file, plan.job.options.compression.value_or(defaultTiffCompression), count);
        for (int position = 1; position <= count; ++position) {
            progress::showPage(position, count);
            writeTiffPage(plan, renderer, position, tiff);
        }
    }
    file.commit();
}

} // namespace

void convertToImages(const Job &job)
{
    Plan plan = makePlan(job);
    progress::beginStep("Drawing");
    if (plan.isTiff() && job.options.multipage) {
        writeMultipage(plan);
        return;
    }
    const int threads = poolSize(job.pageCount(), memoryFor(plan));
    plan.slicePixels = mostPixels / threads;
    PdfFilePool pool(job.file);
    runPool(threads, job.pageCount(), [&](const PageSource &next) {
        const PdfFilePool::Loan file = pool.borrow();
        writePageFiles(plan, *file, next);
    });
}

} // namespace quorra
