// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/pdf/collect_pages.h"

#include <exception>
#include <thread>

namespace quorra {

namespace {

constexpr int worthTwoThreads = 6; // pages: below, opening the file once more takes longer than it saves

void collectRange(Document &document, int first, int last, Collect what, std::vector<model::RawPage> &pages)
{
    PageCollector collector(document, what);
    for (int page = first; page <= last; ++page) {
        pages.push_back(collector.collect(page));
    }
}

} // namespace

std::vector<model::RawPage> collectPages(const Job &job, Collect what)
{
    std::vector<model::RawPage> pages;
    if (job.pageCount() < worthTwoThreads || std::thread::hardware_concurrency() < 2) {
        collectRange(job.document, job.firstPage, job.lastPage, what, pages);
        return pages;
    }
    const int middle = job.firstPage + job.pageCount() / 2;
    std::vector<model::RawPage> rest;
    std::exception_ptr failure;
    std::thread second([&] {
        try {
            Document copy(job.options.inputPath, job.options.userPassword, job.options.ownerPassword);
            collectRange(copy, middle, job.lastPage, what, rest);
        } catch (...) {
            failure = std::current_exception();
        }
    });
    try {
        collectRange(job.document, job.firstPage, middle - 1, what, pages);
    } catch (...) {
        second.join();
        throw;
    }
    second.join();
    if (failure) {
        std::rethrow_exception(failure);
    }
    pages.insert(pages.end(), std::make_move_iterator(rest.begin()), std::make_move_iterator(rest.end()));
    return pages;
}

} // namespace quorra
