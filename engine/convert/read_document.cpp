// SPDX-License-Identifier: GPL-3.0-or-later
#include "read_document.h"

#include "analysis/analysis.h"
#include "analysis/headings.h"
#include "analysis/languages.h"
#include "ocr/recogniser.h"
#include "pdf/file_facts.h"
#include "pdf/page_reading.h"
#include "pdf/structure.h"
#include "platform/worker_pool.h"
#include "recognition_languages.h"
#include "scanned_pages.h"

namespace quorra {

namespace {

std::string joined(const std::vector<std::string> &names)
{
    std::string all;
    for (const std::string &name : names) {
        all += (all.empty() ? "" : "+") + name;
    }
    return all;
}

/// Recognises the text of scanned pages, if the data for that are installed.
void readScans(std::vector<model::RawPage> &pages, const Job &job, PdfFilePool &pool, Collect what)
{
    if (!job.options.recogniseText) {
        return;
    }
    const std::vector<std::string> installed = ocr::installedLanguages();
    if (installed.empty()) {
        return;
    }
    std::string languages = joined(job.options.recognitionLanguages);
    ScanReading reading;
    reading.allowTime = [&](int scans) {
        if (languages.empty()) {
            languages = recognitionLanguages(readFileFacts(*pool.borrow()).language, userLocale(), installed);
        }
        return limitTime(job, finerThanUsual(job.options), scans).scan;
    };
    reading.makeRecogniser = [&languages] { return ocr::makeRecogniser(languages); };
    readScannedPages(pages, pool, what, reading);
}

} // namespace

model::Document readDocument(const Job &job, PdfFilePool &pool, Collect what)
{
    const Structure structure = readStructure(*pool.borrow(), job.firstPage, job.pageCount());
    std::vector<model::RawPage> pages = collectPages(pool, job.firstPage, job.pageCount(), what, &structure);
    readScans(pages, job, pool, what);
    model::Document document = model::buildDocument(std::move(pages), forEachPage, structure.tree);
    if (what == Collect::Everything) {
        document.facts = readFileFacts(*pool.borrow());
        useOutline(document);
        findLanguages(document);
    }
    return document;
}

} // namespace quorra
