// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"
#include "pdf/document.h"

#include <memory>

namespace quorra {

/// How much of a page is worth looking at: plain text needs neither pictures nor links.
enum class Collect { TextAndRules, Everything };

/// Finds everything that pages hold, each in one pass. One object for many pages: what the PDF library learns about
/// their colours serves them all. The document must outlive it.
class PageCollector
{
public:
    PageCollector(Document &document, Collect what);
    ~PageCollector();
    PageCollector(const PageCollector &) = delete;
    PageCollector &operator=(const PageCollector &) = delete;

    /// Pages count from 1; a page that cannot be read gives an empty one of its size.
    model::RawPage collect(int pageNumber);

private:
    struct State;

    std::unique_ptr<State> m_state;
};

} // namespace quorra
