// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/picture_prefetch.h"

#include "document/page_walk.h"
#include "platform/progress.h"
#include "platform/worker_pool.h"

#include <algorithm>
#include <mutex>

namespace quorra {

namespace {

constexpr qsizetype mostBytes = 24 * 1024 * 1024; // for the pictures of one thread; the rest is drawn on request

struct PageOfFigures
{
    int number;
    std::vector<const model::Figure *> figures;
    std::size_t marks;
};

std::vector<PageOfFigures> pagesWithFigures(const model::Document &document)
{
    std::vector<PageOfFigures> pages;
    for (const model::Page &page : document.pages) {
        std::vector<const model::Figure *> figures;
        model::forEachBlock(page, [&figures](const model::Block &block) {
            if (const model::Figure *figure = block.figure()) {
                figures.push_back(figure);
            }
        });
        if (!figures.empty()) {
            pages.push_back({page.number, std::move(figures), page.marks});
        }
    }
    // The slowest ones first, so that no thread is left with one of them when the others are done.
    std::stable_sort(
        pages.begin(), pages.end(), [](const PageOfFigures &a, const PageOfFigures &b) { return a.marks > b.marks; });
    return pages;
}

/// Peak memory of drawing any of the pages in one thread.
PoolMemory memoryFor(const PdfFile &file, const PictureQuality &quality, const std::vector<PageOfFigures> &pages)
{
    PoolMemory memory;
    for (const PageOfFigures &page : pages) {
        memory.perThread = std::max(memory.perThread, drawingMemory(file.pageSize(page.number), quality));
    }
    memory.perThread += mostBytes;
    return memory;
}

} // namespace

PrefetchedPictures::PrefetchedPictures(
    const PictureQuality &quality, PdfFilePool &pool, const model::Document &document, model::PictureSource &source)
    : m_source(source)
{
    const std::vector<PageOfFigures> pages = pagesWithFigures(document);
    const int pageCount = static_cast<int>(pages.size());
    // The pictures of a page are rendered together.
    const PoolMemory memory = memoryFor(*pool.borrow(), quality, pages);
    const int threads = std::min(poolSize(static_cast<int>(document.figures.size()), memory), pageCount);
    if (threads <= 1) {
        return;
    }
    std::mutex mutex;
    progress::beginStep("Drawing pictures of");
    runPool(threads, pageCount, [&](const PageSource &next) {
        const PdfFilePool::Loan lent = pool.borrow();
        PagePictureSource pictures(*lent, document, quality, model::DrawingWords::InPicture);
        std::map<model::FigureId, model::EncodedPicture> drawn;
        qsizetype bytes = 0;
        while (bytes < mostBytes) {
            const int position = next();
            if (position == 0) {
                break;
            }
            for (const model::Figure *figure : pages[static_cast<std::size_t>(position) - 1].figures) {
                model::EncodedPicture picture = pictures.encode(*figure, model::DrawingWords::InPicture);
                bytes += picture.bytes.size();
                drawn.emplace(figure->id, std::move(picture));
            }
        }
        const std::lock_guard lock(mutex);
        m_drawn.merge(drawn);
    });
}

model::EncodedPicture PrefetchedPictures::encode(const model::Figure &figure, model::DrawingWords words)
{
    const auto drawn = words == model::DrawingWords::InPicture ? m_drawn.find(figure.id) : m_drawn.end();
    return drawn == m_drawn.end() ? m_source.encode(figure, words) : drawn->second;
}

} // namespace quorra
