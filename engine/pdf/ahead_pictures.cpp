// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/pdf/ahead_pictures.h"

#include "engine/pdf/collector_pictures.h"

#include <algorithm>
#include <cmath>
#include <exception>
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

std::vector<Wanted> wantedPictures(const model::Document &document)
{
    std::vector<Wanted> wanted;
    for (const model::Page &page : document.pages) {
        for (const model::Section &section : page.sections) {
            for (const model::Block &block : section.blocks) {
                if (const model::Picture *picture = block.picture()) {
                    wanted.push_back({page.number, picture->box, picture->kind});
                }
            }
        }
    }
    return wanted;
}

} // namespace

AheadPictures::AheadPictures(const Job &job, const model::Document &document, model::PictureSource &source)
    : m_source(source)
{
    const std::vector<Wanted> wanted = wantedPictures(document);
    if (wanted.size() < worthTwoThreads || std::thread::hardware_concurrency() < 2) {
        return;
    }
    using Drawn = std::map<Key, model::EncodedPicture>;
    const auto drawRange = [&wanted](std::size_t from, std::size_t to, model::PictureSource &pictures, Drawn &drawn) {
        qsizetype bytes = 0;
        for (std::size_t i = from; i < to && bytes < mostBytes; ++i) {
            model::EncodedPicture picture = pictures.encode(wanted[i].page, wanted[i].box, wanted[i].kind);
            bytes += picture.bytes.size();
            drawn.emplace(keyOf(wanted[i].page, wanted[i].box), std::move(picture));
        }
    };
    const std::size_t middle = wanted.size() / 2;
    Drawn rest;
    std::exception_ptr failure;
    std::thread second([&] {
        try {
            const Options &options = job.options;
            Document copy(options.inputPath, options.userPassword, options.ownerPassword);
            PagePictureSource pictures(
                copy, options.colourDepth, options.horizontalResolution(EmbeddedResolution),
                options.verticalResolution(EmbeddedResolution));
            drawRange(middle, wanted.size(), pictures, rest);
        } catch (...) {
            failure = std::current_exception();
        }
    });
    try {
        drawRange(0, middle, m_source, m_drawn);
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
