// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"
#include "ocr/recogniser.h"
#include "pdf/page_reader.h"
#include "pdf/pdf_file_pool.h"

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace quorra {

/// What reading scanned pages needs from outside; tests can pass other functions than the engine.
struct ScanReading
{
    /// Makes a recogniser for each thread; null if there is none, and the pages stay as they are.
    std::function<std::unique_ptr<ocr::Recogniser>()> makeRecogniser;
    /// Is told, once, how many pages will be recognised, and returns the processor time for each of them.
    std::function<std::chrono::milliseconds(int scans)> allowTime;
};

/// Recognises the text of those pages that have no usable text of their own, several pages in parallel, and adds it to
/// them. `collected` is what was collected from the pages.
void readScannedPages(
    std::vector<model::RawPage> &pages, PdfFilePool &pool, Collect collected, const ScanReading &reading);

} // namespace quorra
