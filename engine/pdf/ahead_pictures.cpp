// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/pdf/ahead_pictures.h"

#include "engine/pdf/collector_pictures.h"

#include <atomic>
#include <cmath>
#include <exception>
#include <numeric>
#include <thread>

namespace quorra {

namespace {

constexpr std::size_t worthTwoThreads = 8;        // pictures
constexpr qsizetype mostBytes = 24 * 1024 * 1024; // of one thread's pictures; the rest is drawn when it is asked for

struct Wanted
{
    int page;
    model::Box box;
    model::PictureKind kind;
};

using PageOfPictures = std::vector<Wanted>;

std::vector<PageOfPictures> wantedPictures(const model::Document &document)
{
    std::vector<PageOfPictures> pages;
    for (const model::Page &page : document.pages) {
        PageOfPictures wanted;
        for (const model::Section &section : page.sections) {
            for (const model::Block &block : section.blocks) {
                if (const model::Picture *picture = block.picture()) {
                    wanted.push_back({page.number, picture->box, picture->kind});
                }
            }
        }
        if (!wanted.empty()) {
            pages.push_back(std::move(wanted));
        }
    }
    return pages;
}

std::size_t countOf(const std::vector<PageOfPictures> &pages)
{
    return std::accumulate(pages.begin(), pages.end(), std::size_t{0}, [](std::size_t sum, const PageOfPictures &page) {
        return sum + page.size();
    });
}

} // namespace

AheadPictures::AheadPictures(const Job &job, const model::Document &document, model::PictureSource &source)
    : m_source(source)
{
    const std::vector<PageOfPictures> pages = wantedPictures(document);
    if (countOf(pages) < worthTwoThreads || std::thread::hardware_concurrency() < 2) {
        return;
    }
    using Drawn = std::map<Key, model::EncodedPicture>;
    // Pages differ much in what they take: each thread takes the next one when it is done with one.
    std::atomic<std::size_t> next = 0;
    const auto drawPages = [&pages, &next](model::PictureSource &pictures, Drawn &drawn) {
        qsizetype bytes = 0;
        while (bytes < mostBytes) {
            const std::size_t page = next++;
            if (page >= pages.size()) {
                break;
            }
            for (const Wanted &wanted : pages[page]) {
                model::EncodedPicture picture = pictures.encode(wanted.page, wanted.box, wanted.kind);
                bytes += picture.bytes.size();
                drawn.emplace(keyOf(wanted.page, wanted.box), std::move(picture));
            }
        }
    };
    Drawn rest;
    std::exception_ptr failure;
    std::thread second([&] {
        try {
            const Options &options = job.options;
            Document copy(options.inputPath, options.userPassword, options.ownerPassword);
            PagePictureSource pictures(
                copy, options.colourDepth, options.horizontalResolution(EmbeddedResolution),
                options.verticalResolution(EmbeddedResolution));
            pictures.expect(document);
            drawPages(pictures, rest);
        } catch (...) {
            failure = std::current_exception();
        }
    });
    try {
        drawPages(m_source, m_drawn);
    } catch (...) {
        second.join();
        throw;
    }
    second.join();
    if (failure) {
        std::rethrow_exception(failure);
    }
    m_drawn.merge(rest);
}

AheadPictures::Key AheadPictures::keyOf(int pageNumber, const model::Box &box)
{
    const auto hundredths = [](double points) { return std::lround(points * 100); };
    return {pageNumber, hundredths(box.left), hundredths(box.top), hundredths(box.right), hundredths(box.bottom)};
}

model::EncodedPicture AheadPictures::encode(int pageNumber, const model::Box &box, model::PictureKind kind)
{
    const auto drawn = m_drawn.find(keyOf(pageNumber, box));
    return drawn == m_drawn.end() ? m_source.encode(pageNumber, box, kind) : drawn->second;
}

} // namespace quorra
