// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"
#include "pdf/pdf_file.h"
#include "pdf/structure.h"

#include <memory>

namespace quorra {

/// What to collect from a page: plain text needs neither pictures nor links.
enum class Collect { TextAndRules, Everything };

/// Reads the contents of pages, each in one pass. Use one object for many pages: the PDF library caches their colours.
/// The file and the structure, which assigns text to its elements, must outlive it.
class PageCollector
{
public:
    PageCollector(PdfFile &file, Collect what, const Structure *structure = nullptr);
    ~PageCollector();
    PageCollector(const PageCollector &) = delete;
    PageCollector &operator=(const PageCollector &) = delete;

    /// Pages are numbered from 1. Returns an empty page of the same size if a page cannot be read.
    model::RawPage collect(int pageNumber);

private:
    struct State;

    std::unique_ptr<State> m_state;
};

/// Adds the pictures on a scanned page, which are only visible in its pixels, as parts of the scan: regions with ink
/// and without words.
void addScanPictures(PdfFile &file, model::RawPage &page);

} // namespace quorra
