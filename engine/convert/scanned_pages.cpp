// SPDX-License-Identifier: GPL-3.0-or-later
#include "scanned_pages.h"

#include "analysis/scanned_pages.h"
#include "base/units.h"
#include "pdf/page_renderer.h"
#include "platform/page_time.h"
#include "platform/progress.h"
#include "platform/worker_pool.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

namespace quorra {

namespace {

using model::RawPage;
using model::TextLayer;

constexpr double mostPixels = 40e6; ///< of a picture; larger pages are recognised at a lower resolution

/// Address space of the libraries, of a recogniser, and for each pixel of a picture, which recognition scales to a
/// resolution of its own.
constexpr std::uint64_t libraryBytes = 45ULL << 20;
constexpr std::uint64_t recogniserBytes = 64ULL << 20;
constexpr double bytesPerPixel = 6;
constexpr double scaledResolution = 300;

/// Times the limit after which recognition is to stop by itself. Beyond that, the run ends.
constexpr int patience = 2;

/// The size of the picture of a page in which its text is recognised.
PictureSize readingSize(const RawPage &page)
{
    double resolution = model::readingResolution(page);
    const double pixels = page.width * page.height * std::pow(resolution / pointsPerInch, 2);
    resolution *= pixels > mostPixels ? std::sqrt(mostPixels / pixels) : 1;
    const auto side = [resolution](double points) {
        return std::max(1, static_cast<int>(std::lround(points * resolution / pointsPerInch)));
    };
    return {side(page.width), side(page.height), resolution, resolution};
}

/// A page that may be a scan, as it is with its pictures.
struct Candidate
{
    std::size_t index;
    TextLayer layer = TextLayer::Usable;
    std::optional<RawPage> page = {}; ///< if it was collected again
};

/// The pages that are to be recognised. Plain text is collected without pictures: pages without words are collected
/// again.
std::vector<Candidate> scansAmong(const std::vector<RawPage> &pages, PdfFilePool &pool, Collect collected)
{
    const bool again = collected == Collect::TextAndRules;
    std::vector<Candidate> found;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const TextLayer layer = model::textLayerOf(pages[i]);
        if (layer != TextLayer::Usable || (again && model::hasLittleText(pages[i]))) {
            found.push_back({i, layer});
        }
    }
    if (again && !found.empty()) {
        const int count = static_cast<int>(found.size());
        runPool(poolSize(count), count, [&](const PageSource &next) {
            const PdfFilePool::Loan file = pool.borrow();
            PageCollector collector(*file, Collect::Everything);
            while (const int position = next()) {
                Candidate &candidate = found[static_cast<std::size_t>(position) - 1];
                candidate.page = collector.collect(pages[candidate.index].number);
                candidate.layer = model::textLayerOf(*candidate.page);
            }
        });
    }
    found.erase(
        std::remove_if(
            found.begin(), found.end(), [](const Candidate &each) { return each.layer == TextLayer::Usable; }),
        found.end());
    return found;
}

PoolMemory memoryFor(const std::vector<Candidate> &scans, const std::vector<RawPage> &pages)
{
    double pixels = 0;
    for (const Candidate &scan : scans) {
        const RawPage &page = scan.page ? *scan.page : pages[scan.index];
        const double resolution = std::max(scaledResolution, readingSize(page).xres);
        pixels = std::max(pixels, page.width * page.height * std::pow(resolution / pointsPerInch, 2));
    }
    return {recogniserBytes + static_cast<std::uint64_t>(bytesPerPixel * std::min(pixels, mostPixels)), libraryBytes};
}

/// Returns whether something was recognised on the page and added to it.
bool readScan(
    RawPage &page, TextLayer layer, PdfFile &file, PageRenderer &renderer, ocr::Recogniser &recogniser,
    std::chrono::milliseconds time)
{
    const PictureSize size = readingSize(page);
    const Raster picture = renderer.draw(page.number, size, 0, size.height);
    const PageTime limit(page.number, patience * time);
    const model::RecognisedPicture found = recogniser.recognise(picture, size.xres, {time});
    const bool added = model::addRecognised(page, layer, found, pointsPerInch / size.xres);
    if (added && layer == TextLayer::Missing) {
        addScanPictures(file, page);
        model::removePartsWithText(page);
    }
    return added;
}

} // namespace

void readScannedPages(std::vector<RawPage> &pages, PdfFilePool &pool, Collect collected, const ScanReading &reading)
{
    std::vector<Candidate> scans = scansAmong(pages, pool, collected);
    if (scans.empty()) {
        return;
    }
    const int count = static_cast<int>(scans.size());
    const std::chrono::milliseconds time = reading.allowTime(count);
    progress::beginStep("Recognising");
    runPool(poolSize(count, memoryFor(scans, pages), 1), count, [&](const PageSource &next) {
        const std::unique_ptr<ocr::Recogniser> recogniser = reading.makeRecogniser();
        if (!recogniser) {
            return;
        }
        const PdfFilePool::Loan file = pool.borrow();
        PageRenderer renderer(*file, ColourDepth::Gray);
        while (const int position = next()) {
            Candidate &scan = scans[static_cast<std::size_t>(position) - 1];
            RawPage &page = pages[scan.index];
            if (readScan(scan.page ? *scan.page : page, scan.layer, *file, renderer, *recogniser, time) && scan.page) {
                page = std::move(*scan.page);
            }
        }
    });
}

} // namespace quorra
