// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pdf/document.h"

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace quorra {

/// A pool of documents of the same file, for several threads. A document is used by one thread at a time and is reused
/// afterwards, because opening a file takes time.
class DocumentCopies
{
public:
    /// A document that is returned to the pool by the destructor; the pool must outlive it.
    using Loan = std::unique_ptr<Document, std::function<void(Document *)>>;

    /// This document is the first one in the pool. It must outlive the pool, and must not be used otherwise in the
    /// meantime.
    explicit DocumentCopies(Document &document);

    /// Thread-safe. Opens the file again if no document is free; throws Failure like opening a document.
    Loan borrow();

private:
    Document *takeFree();
    void giveBack(Document *document);

    const Document &m_original;
    std::mutex m_mutex;
    std::vector<Document *> m_free;
    std::vector<std::unique_ptr<Document>> m_opened;
};

} // namespace quorra
