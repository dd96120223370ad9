// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/picture_prefetch.h"

#include "platform/worker_pool.h"

#include <algorithm>
#include <cmath>
#include <mutex>
#include <numeric>

namespace quorra {

namespace {

constexpr qsizetype mostBytes = 24 * 1024 * 1024; // for the pictures of one thread; the rest is drawn on request

struct Wanted
{
    int page;
    Box box;
    model::PictureKind kind;
};

struct PageOfPictures
{
    std::vector<Wanted> pictures;
    std::size_t marks;
};

std::vector<PageOfPictures> wantedPictures(const model::Document &document)
{
    std::vector<PageOfPictures> pages;
    for (const model::Page &page : document.pages) {
        std::vector<Wanted> wanted;
        for (const model::Section &section : page.sections) {
            for (const model::Block &block : section.blocks) {
                if (const model::Picture *picture = block.picture()) {
                    wanted.push_back({page.number, picture->box, picture->kind});
                }
            }
        }
        if (!wanted.empty()) {
            pages.push_back({std::move(wanted), page.marks});
        }
    }
    // The slowest ones first, so that no thread is left with one of them when the others are done.
    std::stable_sort(
        pages.begin(), pages.end(), [](const PageOfPictures &a, const PageOfPictures &b) { return a.marks > b.marks; });
    return pages;
}

int countOf(const std::vector<PageOfPictures> &pages)
{
    return std::accumulate(pages.begin(), pages.end(), 0, [](int sum, const PageOfPictures &page) {
        return sum + static_cast<int>(page.pictures.size());
    });
}

/// Peak memory of drawing any of the pages in one thread.
PoolMemory memoryFor(const Document &document, const PictureQuality &quality, const std::vector<PageOfPictures> &pages)
{
    PoolMemory memory;
    for (const PageOfPictures &page : pages) {
        const PageSize size = document.pageSize(page.pictures.front().page);
        memory.perThread = std::max(memory.perThread, drawingMemory(size, quality.depth, quality.xres, quality.yres));
    }
    memory.perThread += mostBytes;
    return memory;
}

} // namespace

AheadPictures::AheadPictures(
    const PictureQuality &quality, DocumentCopies &copies, const model::Document &document,
    model::PictureSource &source)
    : m_source(source)
{
    const std::vector<PageOfPictures> pages = wantedPictures(document);
    const int pageCount = static_cast<int>(pages.size());
    // The pictures of a page are rendered together.
    const PoolMemory memory = memoryFor(*copies.borrow(), quality, pages);
    const int threads = std::min(poolSize(countOf(pages), memory), pageCount);
    if (threads <= 1) {
        return;
    }
    std::mutex mutex;
    runPool(threads, pageCount, [&](const PageSource &next) {
        const DocumentCopies::Loan lent = copies.borrow();
        PagePictureSource pictures(*lent, quality.depth, quality.xres, quality.yres);
        pictures.expect(document);
        std::map<Key, model::EncodedPicture> drawn;
        qsizetype bytes = 0;
        while (bytes < mostBytes) {
            const int position = next();
            if (position == 0) {
                break;
            }
            for (const Wanted &wanted : pages[static_cast<std::size_t>(position) - 1].pictures) {
                model::EncodedPicture picture = pictures.encode(wanted.page, wanted.box, wanted.kind);
                bytes += picture.bytes.size();
                drawn.emplace(keyOf(wanted.page, wanted.box), std::move(picture));
            }
        }
        const std::lock_guard lock(mutex);
        m_drawn.merge(drawn);
    });
}

AheadPictures::Key AheadPictures::keyOf(int pageNumber, const Box &box)
{
    const auto hundredths = [](double points) { return std::lround(points * 100); };
    return {pageNumber, hundredths(box.left), hundredths(box.top), hundredths(box.right), hundredths(box.bottom)};
}

model::EncodedPicture AheadPictures::encode(int pageNumber, const Box &box, model::PictureKind kind)
{
    const auto drawn = m_drawn.find(keyOf(pageNumber, box));
    return drawn == m_drawn.end() ? m_source.encode(pageNumber, box, kind) : drawn->second;
}

} // namespace quorra
